// RSASSA-PKCS1-v1_5: RFC 8017, 8.2.
#include "rsa/rsa_signature.h"

#include <cstring>

#include "rsa/pkcs1_signature.h"
#include "rsa/rsa_operation.h"

namespace zul {
SecretBuffer rsa_make_signature(const RsaKey& key, const uint8_t* message, size_t length, int algorithm,
                                bool isDigest) {
    SecretBuffer block(key.bytes()), signature(key.bytes());
    size_t signatureLen = 0;
    if (pkcs1_sign_block(block.data(), block.size(), message, length, algorithm, isDigest) != 0 ||
        rsaPrivate(&key, signature.data(), &signatureLen, block.data(), block.size()) != 0)
        return {};
    return signature;
}

bool rsa_signature_is(const RsaKey& key, const uint8_t* signature, size_t signatureLen, const uint8_t* digest,
                      size_t digestLen, int algorithm) {
    // The whole block is compared. Extracting the digest from it would allow forgeries.
    SecretBuffer block(key.bytes()), undone(key.bytes());
    size_t length = 0;
    return signatureLen == key.bytes() &&
           pkcs1_sign_block(block.data(), block.size(), digest, digestLen, algorithm, true) == 0 &&
           rsaPublic(&key, undone.data(), &length, signature, signatureLen) == 0 &&
           memcmp(undone.data(), block.data(), block.size()) == 0;
}

} // namespace zul
