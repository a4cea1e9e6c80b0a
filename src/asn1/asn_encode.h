#pragma once
#include "asn1/asn_node.h"
#include "frame/memory.h"

namespace zul {

class FileWriter;
class PemWriter;
struct DigestContext;

// asn_Encode gives the encoding of a whole list; an empty buffer if the list is empty or a length is unset.
SecretBuffer asn_Encode(const asn_Node* list);
inline SecretBuffer asn_Encode(const AsnList& list) {
    return asn_Encode(list.head());
}

// asn_EncodeBase64 gives it as base64 text; size() does not count the NUL that follows.
SecretBuffer asn_EncodeBase64(const asn_Node* list);

// The same bytes without a copy of them all in memory: asn_HasEncoding tells whether asn_Encode would give
// any.
bool asn_HasEncoding(const asn_Node* list);
void asn_Digest(const asn_Node* list, DigestContext& context);
void asn_WritePem(const asn_Node* list, PemWriter& writer);
[[nodiscard]] int asn_WriteFile(const asn_Node* list, FileWriter& file); // 0, or -1 after a write failure

// asn_Compare orders two lists by their encodings, bytewise and then the shorter first: below, equal to or
// above 0. An empty list sorts last.
[[nodiscard]] int asn_Compare(const asn_Node* a, const asn_Node* b);
void asn_SortSet(AsnList* lists, size_t n); // the order of SET OF in DER

void asn_Dump(const asn_Node* list); // a listing on standard output

} // namespace zul
