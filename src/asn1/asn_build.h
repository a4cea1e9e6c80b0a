#pragma once
#include <ctime>

#include "asn1/asn_node.h"

// Makers of elements. Texts and bytes are copied; lists given are consumed. All but the Ndef forms make DER.
namespace zul {

AsnList asn_New(uint32_t cls, uint32_t tag); // bare: no length, level 0
// asn_NewAfter puts a bare node behind a node of a list, at its level.
asn_Node* asn_NewAfter(AsnList& list, asn_Node* prev, uint32_t cls, uint32_t tag);

AsnList asn_NewSequence(AsnList content);
AsnList asn_NewSet(AsnList content);
AsnList asn_NewAttribute(const char* type, AsnList value); // X.501, with one value; type as for asn_NewOid
AsnList asn_NewExplicit(uint32_t n, AsnList content);      // context-specific constructed [n]
AsnList asn_NewOctetStringOf(AsnList content);             // the list's encoding becomes the content
AsnList asn_NewOctetString(const void* bytes, size_t n);
AsnList asn_NewContextPrim(uint32_t n, const void* bytes, size_t len); // context-specific primitive [n]
AsnList asn_NewInteger(uint32_t value);
AsnList asn_NewIntegerBytes(const uint8_t* bytes, size_t n); // from an unsigned big-endian magnitude
AsnList asn_NewBoolean(int flag);
AsnList asn_NewNull();
AsnList asn_NewOid(const char* name); // a name of the table in oid.h; an unknown one gives no octets
AsnList asn_NewBitString(unsigned unused, const void* bytes, size_t n);
AsnList asn_NewBitStringOf(unsigned unused, AsnList content);
AsnList asn_NewString(uint32_t tag, const void* bytes, size_t n); // of any universal tag, bytes as given
AsnList asn_NewUTF8String(const char* text);    // text that is not UTF-8 is taken as Latin-1
AsnList asn_NewBMPString(const char* text);     // each byte b becomes 00 b
AsnList asn_NewTime(const tm& time);            // UTCTime from 1950 to 2049, else GeneralizedTime
AsnList asn_NewUTCTime(const tm& time);         // a failure, with a text, for other years
AsnList asn_NewGeneralizedTime(const tm& time); // a failure for years outside 0 to 9999
AsnList asn_NewHashAlgId(int hashAlg);          // SEQUENCE { OID, NULL } for a digest algorithm's number

// Headers of indefinite length, for streamed output.
AsnList asn_NewNdef(uint32_t cls, uint32_t tag);
AsnList asn_NewNdefUniversal(uint32_t tag);
AsnList asn_NewNdefExplicit(uint32_t n);
AsnList asn_AppendEOC(AsnList list);

// asn_SetHeader computes a node's header octets if that is not yet done: header and content length together,
// 0 with a text if the length is unset.
size_t asn_SetHeader(asn_Node* node);
// asn_Join puts content under header, a list whose first node is a header without a length.
AsnList asn_Join(AsnList header, AsnList content);
AsnList asn_NdefAppend(AsnList header, AsnList content);
// asn_Link appends b behind a; either may be empty.
AsnList asn_Link(AsnList a, AsnList b);
template<class... Rest>
AsnList asn_LinkList(AsnList first, Rest&&... rest) {
    if constexpr (sizeof...(rest) == 0)
        return first;
    else
        return asn_Link(std::move(first), asn_LinkList(std::forward<Rest>(rest)...));
}

// asn_Length is the encoded size of the elements at the level of the first node; 0 with a text if a length is
// unset.
size_t asn_Length(const asn_Node* list);

} // namespace zul
