#pragma once
#include "asn1/asn_node.h"
#include "frame/memory.h"

namespace zul {

class FileWriter;

// asn_Encode gives the encoding of a whole list; an empty buffer if the list is empty or a length is unset.
SecretBuffer asn_Encode(const asn_Node* list);
inline SecretBuffer asn_Encode(const AsnList& list) {
    return asn_Encode(list.head());
}

// asn_EncodeBase64 gives it as base64 text; size() does not count the NUL that follows.
SecretBuffer asn_EncodeBase64(const asn_Node* list);

[[nodiscard]] int asn_WriteFile(const asn_Node* list, FileWriter& file); // 0, or -1 after a write failure

// asn_Compare orders two lists by their encodings, bytewise and then the shorter first: below, equal to or
// above 0. An empty list sorts last.
[[nodiscard]] int asn_Compare(const asn_Node* a, const asn_Node* b);
void asn_SortSet(AsnList* lists, size_t n); // the order of SET OF in DER

void asn_Dump(const asn_Node* list); // a listing on standard output

} // namespace zul
