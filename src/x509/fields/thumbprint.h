#pragma once
#include "asn1/asn_node.h"
#include "hash/digest.h"

namespace zul {

// der_digest digests an object's DER: the length, or a negated code (-INVALID_DATA_ERROR with a text if it
// cannot be DER, -BAD_FLAG_ERROR).
int der_digest(uint8_t out[kMaxDigestSize], AsnList object, int algorithm);

// thumbprint_text writes the digest of a certificate in lower-case hex: false if it cannot be DER.
constexpr size_t kThumbprintText = 2 * kMaxDigestSize;
bool thumbprint_text(AsnList certificate, DigestAlgorithm algorithm, char out[kThumbprintText + 1]);

} // namespace zul
