#pragma once
#include "asn1/asn_node.h"
#include "frame/memory.h"

// One element where it stands in a list: a node with all the nodes inside it.
namespace zul {

// asn_ElementEnd gives the node behind an element, null if the list ends with it. An end-of-contents marker
// that ends an element of indefinite length belongs to it.
const asn_Node* asn_ElementEnd(const asn_Node* element);

// asn_EncodeElement gives an element's encoding, header octets as they were read or made; empty for null or
// an unset length.
SecretBuffer asn_EncodeElement(const asn_Node* element);

// asn_SameElement tells whether two elements have the same encoding, wherever they stand; null equals
// nothing.
bool asn_SameElement(const asn_Node* a, const asn_Node* b);

// asn_IsDer tells whether all lengths of a list are definite and minimal and no string is segmented.
// asn_ToDer converts a list to that form (X.690, 10.1 and 10.2) and keeps the values and their order. It
// fails for a segmented string that holds anything but strings, and for a primitive element of indefinite
// length.
bool asn_IsDer(const asn_Node* list, const asn_Node* end = nullptr); // the nodes before end
// asn_IsDerContent is asn_IsDer for encoded elements in memory, at a given level.
bool asn_IsDerContent(const uint8_t* bytes, size_t n, uint32_t level);
AsnList asn_ToDer(AsnList list);

} // namespace zul
