#pragma once
#include "frame/memory.h"
#include "rsa/rsa_key.h"

namespace zul {

// rsa_make_signature signs a message, or a digest given as it is, with PKCS #1 v1.5 (RFC 8017, 8.2.1). It is
// empty if the key is too short or damaged: rsaPrivate verifies what it computes.
SecretBuffer rsa_make_signature(const RsaKey& key, const uint8_t* message, size_t length, int algorithm,
                                bool isDigest);

// rsa_signature_is tells whether a signature is that of a digest (RFC 8017, 8.2.2).
bool rsa_signature_is(const RsaKey& key, const uint8_t* signature, size_t signatureLen, const uint8_t* digest,
                      size_t digestLen, int algorithm);

} // namespace zul
