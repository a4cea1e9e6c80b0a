#pragma once
#include "asn1/asn_node.h"

// Steps through a list. Each starts at the node after the one given and returns the first match or null; a
// null node gives null.
namespace zul {

asn_Node* asn_FindTag(const asn_Node* node, uint32_t tag);
asn_Node* asn_FindTagAtLevel(const asn_Node* node, uint32_t tag, uint32_t level);
asn_Node* asn_FindTagAtLevelN(const asn_Node* node, uint32_t tag, int n,
                              uint32_t level); // the n-th such step
// asn_FetchElement copies the element that n steps by tag and level (by tag alone if level is negative) find.
AsnList asn_FetchElement(const asn_Node* node, uint32_t tag, int n, int level);
asn_Node* asn_NextAtLevel(const asn_Node* node, uint32_t level);
asn_Node* asn_Skip(const asn_Node* node, int n, uint32_t level); // n steps of asn_NextAtLevel
asn_Node* asn_FindContext(const asn_Node* node, uint32_t n);
asn_Node* asn_FindContextAtLevel(const asn_Node* node, uint32_t n, uint32_t level);

// asn_FindOidValue finds an OBJECT IDENTIFIER of the table's name oid, looking also into OCTET STRINGs and
// BIT STRINGs that hold an element (eight layers deep at most), and copies the next node of a tag after it.
AsnList asn_FindOidValue(const asn_Node* list, const char* oid, uint32_t tag);

} // namespace zul
