#pragma once
#include "frame/memory.h"
#include "rsa/rsa_key.h"

namespace zul {

// rsa_make_signature signs a message, or a digest given as it is, with PKCS #1 v1.5 (RFC 8017, 8.2.1): empty
// if the key cannot. A signature that the public part of the key does not undo is never given away: one that
// went wrong in one of the two primes would tell the key, and one of a damaged key serves nobody.
SecretBuffer rsa_make_signature(const RsaKey& key, const uint8_t* message, size_t length, int algorithm,
                                bool isDigest);

// rsa_signature_is tells whether a signature is that of a digest (RFC 8017, 8.2.2).
bool rsa_signature_is(const RsaKey& key, const uint8_t* signature, size_t signatureLen, const uint8_t* digest,
                      size_t digestLen, int algorithm);

} // namespace zul
