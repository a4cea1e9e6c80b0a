#pragma once
#include "asn1/asn_node.h"
#include "key/signature_choice.h"

// The AlgorithmIdentifier of a signature, as certificates, requests and CRLs have it.
namespace zul {

// signature_identifier_list makes it for an algorithm and the key that signs: 0, or with a text:
// NOT_SUPPORTED_ERROR (the standards give the algorithm no identifier), BAD_KEY_LEN_ERROR (the key has no
// room for a PSS salt).
[[nodiscard]] int signature_identifier_list(AsnList& list, const SignatureAlgorithm& algorithm,
                                            const Key& key);

} // namespace zul
