// RSASSA-PKCS1-v1_5 (RFC 8017, 8.2.2; RFC 3370, 3.2) and DSA (RFC 3370, 3.1) over digests.
#include "cms/signed/signer_check.h"

#include <cstring>
#include <string_view>

#include "asn1/asn_value.h"
#include "frame/err.h"
#include "hash/digest.h"
#include "rsa/pkcs1_signature.h"
#include "rsa/rsa_operation.h"
#include "x509/verify/signature_check.h"
#include "zulcore.h"

namespace zul {
namespace {

// The name may include a digest. It is ignored: the digestAlgorithm and the DigestInfo name the digest.
bool is_rsa(std::string_view algorithm) {
    return algorithm == "rsaEncryption" || algorithm.ends_with("WithRSAEncryption");
}

bool is_dsa(std::string_view algorithm) {
    return algorithm == "dsaWithSha1" || algorithm == "dsa";
}

[[nodiscard]] int not_verified() {
    return err_fail(SIGNATURE_ERROR, "Signature did not verify");
}

} // namespace

int SignerCheck::prepare(const asn_Node* subjectPublicKeyInfo, const SignerFields& signer, int digest) {
    char name[kAlgorithmName];
    algorithm_name(signer.signatureAlgorithm, name);
    const bool withDsa = is_dsa(name) && digest == kDigestSha1;
    if (!withDsa && !is_rsa(name))
        return err_fail(NOT_SUPPORTED_ERROR, "Unsupported signature algorithm %s", name);
    SecretBuffer signature;
    if (!asn_GetOctets(signer.signature, signature))
        return err_fail(INVALID_DATA_ERROR, "Invalid SignerInfo: no signature");
    return withDsa ? prepare_dsa(subjectPublicKeyInfo, signature)
                   : prepare_rsa(subjectPublicKeyInfo, signature, digest);
}

int SignerCheck::prepare_rsa(const asn_Node* subjectPublicKeyInfo, const SecretBuffer& signature,
                             int digest) {
    RsaKey key;
    if (const int error = rsa_signer_key(subjectPublicKeyInfo, key))
        return error;
    SecretBuffer block(key.bytes());
    size_t length = 0, start = 0;
    if (signature.size() != key.bytes() ||
        rsaPublic(&key, block.data(), &length, signature.data(), signature.size()) != 0)
        return not_verified();
    // No octet of the block is free: padding, algorithm and digest fill it, so nothing can be forged in
    // between.
    const DigestInfoPrefix* info = nullptr;
    if (pkcs1_open_block(block.data(), length, &start, &info) != 0 || info->algorithm != digest)
        return not_verified();
    recovered_.append(block.data() + start + info->length, info->digestLength);
    return 0;
}

int SignerCheck::prepare_dsa(const asn_Node* subjectPublicKeyInfo, const SecretBuffer& signature) {
    if (const int error = dsa_.open_key(subjectPublicKeyInfo))
        return error;
    return dsa_.open_signature(signature.data(), signature.size()) ? 0 : not_verified();
}

bool SignerCheck::matches(const uint8_t* digest, size_t length) const {
    if (dsa_.is_open())
        return dsa_.matches(digest, length);
    return length == recovered_.size() && memcmp(digest, recovered_.data(), length) == 0;
}

} // namespace zul
