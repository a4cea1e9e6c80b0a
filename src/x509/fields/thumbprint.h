#pragma once
#include "asn1/asn_node.h"
#include "hash/digest.h"

namespace zul {

// der_digest digests the DER of a list. It gives 0, BAD_FLAG_ERROR for an algorithm without a digest, or
// INVALID_DATA_ERROR with a text for an object that has no DER form.
[[nodiscard]] int der_digest(uint8_t out[kMaxDigestSize], const asn_Node* object, int algorithm);

// thumbprint_text writes the digest of a certificate in lower-case hex: false if it has no DER form.
constexpr size_t kThumbprintText = 2 * kMaxDigestSize;
bool thumbprint_text(const asn_Node* certificate, DigestAlgorithm algorithm, char out[kThumbprintText + 1]);

} // namespace zul
