#pragma once
#include "asn1/asn_node.h"
#include "hash/digest.h"

namespace zul {

// der_digest digests an object's DER. It gives 0, BAD_FLAG_ERROR for an algorithm without a digest, or
// INVALID_DATA_ERROR with a text for an object that has no DER form.
[[nodiscard]] int der_digest(uint8_t out[kMaxDigestSize], AsnList object, int algorithm);

// thumbprint_text writes the digest of a certificate in lower-case hex: false if it has no DER form.
constexpr size_t kThumbprintText = 2 * kMaxDigestSize;
bool thumbprint_text(AsnList certificate, DigestAlgorithm algorithm, char out[kThumbprintText + 1]);

} // namespace zul
