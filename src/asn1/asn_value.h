#pragma once
#include <ctime>

#include "asn1/asn_node.h"
#include "frame/memory.h"

// What elements hold. A null node is of no type.
namespace zul {

struct OidInfo;

// asn_GetInt reads an INTEGER or ENUMERATED of 1 to 4 bytes as an unsigned number; -1 for anything else.
int64_t asn_GetInt(const asn_Node* node);
// asn_GetIntegerBytes copies an INTEGER without its leading zero bytes: its length, or -1 for another type
// or longer than max.
[[nodiscard]] int asn_GetIntegerBytes(const asn_Node* node, uint8_t* buf, size_t max);
[[nodiscard]] int asn_GetBoolean(const asn_Node* node); // 1, 0, or -1 for another type
[[nodiscard]] int asn_GetOid(const asn_Node* node,
                             OidInfo* rec); // 0, or -1 for another type or an unknown OID
[[nodiscard]] int asn_OidEquals(const asn_Node* node, const OidInfo* rec); // 0 if equal, else -1
bool asn_OidIs(const asn_Node* node, const char* name);                    // a name of the OID table

// BIT STRINGs as flags: named bit 0 is 0x1, bit 1 is 0x2 and so on. 0 with a text if there are more than 32.
uint32_t asn_GetBitFlags(const asn_Node* node);
size_t asn_BitFlagsToBytes(uint32_t flags, uint8_t buf[4], unsigned* unused); // the bytes written

// The content of an element in a buffer of its own, which has a NUL after its last byte; false if the node is
// not of the type.
bool asn_GetBitString(const asn_Node* node, SecretBuffer& content); // without the octet of unused bits
bool asn_GetOctets(const asn_Node* node, SecretBuffer& content);    // segments of a constructed one joined
bool asn_GetPrimitiveData(const asn_Node* node, SecretBuffer& content);
bool asn_StoreData(const asn_Node* node, SecretBuffer& content); // of any primitive node, with texts
bool asn_DataAppend(SecretBuffer& content, const asn_Node* node);

// asn_GetText gives the content as text: string and time types as they are; UTF8String, BMPString and
// UniversalString as Latin-1 if convert is set and they can be; all else as "%02X " bytes.
SecretBuffer asn_GetText(const asn_Node* node, bool convert);

// asn_GetTime reads a UTCTime or GeneralizedTime: 0; 1 for another type, or without year, month and day;
// -1 for null. The digits are taken as they stand: what follows the seconds (a fraction, "Z", an offset) is
// ignored, fields that are missing at the end are 0, and the date need not exist.
[[nodiscard]] int asn_GetTime(const asn_Node* node, tm* time);
constexpr size_t kAsnTimeText = 32;
// asn_format_time writes "yyyy-mm-ddThh:nn:ssZ" for a year from 0 to 9999.
void asn_format_time(const tm& time, char out[kAsnTimeText]);
// asn_time_text writes the time of a node in that form, or an empty text if asn_GetTime fails. asn_TimeString
// writes it into a buffer of the calling thread, which is valid until the thread's next call.
const char* asn_time_text(const asn_Node* node, char out[kAsnTimeText]);
const char* asn_TimeString(const asn_Node* node);

} // namespace zul
