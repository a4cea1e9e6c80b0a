// RSASSA-PKCS1-v1_5 (RFC 8017, 8.2.2) and DSA (RFC 3279, 2.2.2).
#include "x509/verify/signature_check.h"

#include <cstring>

#include "asn1/asn_children.h"
#include "frame/err.h"
#include "hash/digest.h"
#include "rsa/pkcs1_signature.h"
#include "rsa/rsa_der.h"
#include "rsa/rsa_operation.h"
#include "x509/fields/signature_algorithm.h"

namespace zul {

namespace {

constexpr char kDsaWithSha1[] = "dsaWithSha1";

// has_no_parameters tells whether the parameters of an AlgorithmIdentifier are missing or NULL. A signature
// does not cover them, so nobody may choose others.
bool has_no_parameters(const asn_Node* algorithmIdentifier) {
    AsnChildren children(algorithmIdentifier);
    if (children.take_oid() == nullptr)
        return false;
    const asn_Node* null = children.take_if(kAsnUniversal, kAsnNull);
    return children.at_end() && (null == nullptr || (null->length == 0 && null->ndef == 0));
}

} // namespace

int rsa_signer_key(const asn_Node* subjectPublicKeyInfo, RsaKey& key) {
    if (public_key_type(subjectPublicKeyInfo) != PublicKeyType::rsa) {
        char name[kAlgorithmName];
        return err_fail(NOT_SUPPORTED_ERROR, "Unsupported key algorithm '%s': require `rsaEncryption'",
                        public_key_algorithm(subjectPublicKeyInfo, name));
    }
    if (rsa_public_key_of(subjectPublicKeyInfo, key) && rsa_exponent_is_safe(key))
        return 0;
    return err_fail(INVALID_DATA_ERROR, "Unable to convert public key");
}

int SignatureCheck::prepare(const asn_Node* subjectPublicKeyInfo, const asn_Node* signatureAlgorithm,
                            const asn_Node* signatureValue) {
    char name[kAlgorithmName];
    algorithm_name(signatureAlgorithm, name);
    if (asn_is(signatureValue, kAsnUniversal, kAsnBitString) && signatureValue->data != nullptr &&
        signatureValue->data[0] == 0 && has_no_parameters(signatureAlgorithm)) {
        signature_ = signatureValue->data + 1;
        signatureLength_ = signatureValue->length - 1;
    }
    return strcmp(name, kDsaWithSha1) == 0 ? prepare_dsa(subjectPublicKeyInfo)
                                           : prepare_rsa(subjectPublicKeyInfo, name);
}

int SignatureCheck::prepare_rsa(const asn_Node* subjectPublicKeyInfo, const char* algorithm) {
    RsaKey key;
    if (const int error = rsa_signer_key(subjectPublicKeyInfo, key))
        return error;
    digest_ = rsa_signature_digest(algorithm);
    if (digest_ < 0)
        return err_fail(NOT_SUPPORTED_ERROR, "Unsupported signature algorithm %s", algorithm);
    return open_rsa(key);
}

int SignatureCheck::open_rsa(const RsaKey& key) {
    block_ = SecretBuffer(key.bytes());
    size_t length = 0;
    if (signature_ == nullptr || signatureLength_ != key.bytes() ||
        rsaPublic(&key, block_.data(), &length, signature_, signatureLength_) != 0)
        return kNever;
    return 0;
}

int SignatureCheck::prepare_dsa(const asn_Node* subjectPublicKeyInfo) {
    if (const int error = dsa_.open_key(subjectPublicKeyInfo))
        return error;
    digest_ = kDigestSha1;
    if (signature_ == nullptr)
        return kNever;
    if (dsa_.open_signature(signature_, signatureLength_))
        return 0;
    err_add_text("Wrong format for signature");
    return kNever;
}

bool SignatureCheck::matches(const uint8_t* digest, size_t length) const {
    if (dsa_.is_open())
        return dsa_.matches(digest, length);
    // The whole block is compared: reading the digest out of it would leave room for forgeries.
    SecretBuffer expected(block_.size());
    return pkcs1_sign_block(expected.data(), expected.size(), digest, length, digest_, true) == 0 &&
           memcmp(expected.data(), block_.data(), expected.size()) == 0;
}

} // namespace zul
