#pragma once
#include "asn1/asn_node.h"

// Lists of elements of one type, as extensions repeat them.
namespace zul {

// list_add adds an element at the end.
void list_add(AsnList& list, AsnList element);
// list_drop_repeats takes out the elements that are encoded like an earlier one.
void list_drop_repeats(AsnList& list);
// list_has_type tells whether a list of SEQUENCEs has one that begins with an element like another.
bool list_has_type(const AsnList& list, const asn_Node* type);

} // namespace zul
