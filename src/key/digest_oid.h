#pragma once
#include "asn1/asn_node.h"

// AlgorithmIdentifiers of digests, also of those that have no name in the table of object identifiers.
namespace zul {

AsnList digest_algorithm_list(int digest); // with the parameters NULL

// digest_algorithm_read takes one with the parameters NULL or none: 0, BAD_FORMAT_ERROR or
// NOT_SUPPORTED_ERROR, with a text.
[[nodiscard]] int digest_algorithm_read(int* digest, const asn_Node* algorithm);

} // namespace zul
