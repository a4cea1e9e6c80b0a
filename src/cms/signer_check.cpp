// RSASSA-PKCS1-v1_5 (RFC 8017, 8.2.2; RFC 3370, 3.2) and DSA (RFC 3370, 3.1) over digests.
#include "cms/signer_check.h"

#include <cstring>
#include <string_view>

#include "asn1/asn_children.h"
#include "asn1/asn_element.h"
#include "asn1/asn_parse.h"
#include "asn1/asn_value.h"
#include "asn1/byte_stream.h"
#include "frame/err.h"
#include "hash/digest.h"
#include "rsa/pkcs1_signature.h"
#include "rsa/rsa_operation.h"
#include "x509/dsa.h"

namespace zul {
namespace {

// The name may be that of a digest, too: which digest it is the digestAlgorithm says, and the DigestInfo.
bool is_rsa(std::string_view algorithm) {
    return algorithm == "rsaEncryption" || algorithm.ends_with("WithRSAEncryption");
}

bool is_dsa(std::string_view algorithm) {
    return algorithm == "dsaWithSha1" || algorithm == "dsa";
}

int not_verified() {
    err_add_text("Signature did not verify");
    return SIGNATURE_ERROR;
}

int unusable_key() {
    err_add_text("Unable to convert public key");
    return INVALID_DATA_ERROR;
}

// is_positive tells whether a node is an INTEGER above 0 in the fewest octets.
bool is_positive(const asn_Node* node) {
    if (!asn_is(node, kAsnUniversal, kAsnInteger) || node->data == nullptr || (node->data[0] & 0x80) != 0)
        return false;
    return node->data[0] != 0 || (node->length > 1 && (node->data[1] & 0x80) != 0);
}

} // namespace

int SignerCheck::prepare(const asn_Node* subjectPublicKeyInfo, const SignerFields& signer, int digest) {
    char name[kAlgorithmName];
    algorithm_name(signer.signatureAlgorithm, name);
    const bool withDsa = is_dsa(name) && digest == kDigestSha1;
    if (!withDsa && !is_rsa(name)) {
        err_add_text("Unsupported signature algorithm %s", name);
        return NOT_SUPPORTED_ERROR;
    }
    SecretBuffer signature;
    if (!asn_GetOctets(signer.signature, signature)) {
        err_add_text("Invalid SignerInfo: no signature");
        return INVALID_DATA_ERROR;
    }
    return withDsa ? prepare_dsa(subjectPublicKeyInfo, signature)
                   : prepare_rsa(subjectPublicKeyInfo, signature, digest);
}

int SignerCheck::prepare_rsa(const asn_Node* subjectPublicKeyInfo, const SecretBuffer& signature,
                             int digest) {
    if (public_key_type(subjectPublicKeyInfo) != PublicKeyType::rsa) {
        char name[kAlgorithmName];
        err_add_text("Unsupported key algorithm '%s': require `rsaEncryption'",
                     public_key_algorithm(subjectPublicKeyInfo, name));
        return NOT_SUPPORTED_ERROR;
    }
    RsaKey key;
    if (!rsa_public_key_of(subjectPublicKeyInfo, key))
        return unusable_key();
    SecretBuffer block(key.bytes());
    size_t length = 0, start = 0;
    if (signature.size() != key.bytes() ||
        rsaPublic(&key, block.data(), &length, signature.data(), signature.size()) != 0)
        return not_verified();
    // No octet of the block is free: padding, algorithm and digest fill it, so nothing can be forged in
    // between.
    const DigestInfoPrefix* info = nullptr;
    if (pkcs1_open_block(block.data(), length, &start, &info) < 0 || info->algorithm != digest)
        return not_verified();
    recovered_.append(block.data() + start + info->length, info->digestLength);
    return 0;
}

int SignerCheck::prepare_dsa(const asn_Node* subjectPublicKeyInfo, const SecretBuffer& signature) {
    if (public_key_type(subjectPublicKeyInfo) != PublicKeyType::dsa) {
        char name[kAlgorithmName];
        err_add_text("Unexpected key algorithm %s: require `dsa'",
                     public_key_algorithm(subjectPublicKeyInfo, name));
        return NOT_SUPPORTED_ERROR;
    }
    switch (dsa_public_key_of(subjectPublicKeyInfo, dsaKey_)) {
    case DsaKeyState::noParameters:
        err_add_text("No public key parameters: inherited DSS-Params not supported");
        return NOT_SUPPORTED_ERROR;
    case DsaKeyState::unusable:
        return unusable_key();
    case DsaKeyState::good:
        break;
    }
    ByteStream stream(signature.data(), signature.size());
    dsaValue_ = asn_Parse(stream, false, true);
    const asn_Node* value = dsaValue_.head();
    AsnChildren children(asn_is(value, kAsnConstructed, kAsnSequence) ? value : nullptr);
    r_ = children.take();
    s_ = children.take();
    const bool wellFormed =
        is_positive(r_) && is_positive(s_) && children.at_end() && stream.at_end() && asn_IsDer(value);
    return wellFormed ? 0 : not_verified();
}

bool SignerCheck::matches(const uint8_t* digest, size_t length) const {
    if (r_ != nullptr)
        return dsa_verify(dsaKey_, digest, length, r_->data, r_->length, s_->data, s_->length) == 0;
    return length == recovered_.size() && memcmp(digest, recovered_.data(), length) == 0;
}

} // namespace zul
