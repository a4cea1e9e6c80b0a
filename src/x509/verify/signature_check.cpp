// RSASSA-PKCS1-v1_5 (RFC 8017, 8.2.2) and DSA (RFC 3279, 2.2.2) over the bytes of a stream.
#include "x509/verify/signature_check.h"

#include <algorithm>
#include <cstring>

#include "asn1/asn_children.h"
#include "asn1/byte_stream.h"
#include "frame/err.h"
#include "hash/digest.h"
#include "rsa/pkcs1_signature.h"
#include "rsa/rsa_operation.h"
#include "x509/fields/signature_algorithm.h"

namespace zul {

namespace {

constexpr char kDsaWithSha1[] = "dsaWithSha1";

// has_no_parameters tells whether an AlgorithmIdentifier has none but NULL. Nothing that a signature does not
// cover may be chosen freely.
bool has_no_parameters(const asn_Node* algorithmIdentifier) {
    AsnChildren children(algorithmIdentifier);
    if (children.take_oid() == nullptr)
        return false;
    const asn_Node* null = children.take_if(kAsnUniversal, kAsnNull);
    return children.at_end() && (null == nullptr || (null->length == 0 && null->ndef == 0));
}

int digest_stream(ByteStream& stream, size_t offset, size_t size, int algorithm, uint8_t* digest) {
    constexpr size_t kChunk = 64 * 1024;
    SecretBuffer chunk(std::min(size, kChunk));
    DigestContext context;
    digest_init(context, algorithm);
    bool whole = stream.seek(offset);
    while (whole && size > 0) {
        const size_t part = std::min(size, chunk.size());
        whole = stream.read(chunk.data(), part) == part;
        digest_update(context, chunk.data(), part);
        size -= part;
    }
    const int length = digest_final(context, digest);
    if (whole)
        return length;
    err_add_text("Invalid ASN.1 data");
    return -INVALID_DATA_ERROR;
}

} // namespace

int rsa_signer_key(const asn_Node* subjectPublicKeyInfo, RsaKey& key) {
    if (public_key_type(subjectPublicKeyInfo) != PublicKeyType::rsa) {
        char name[kAlgorithmName];
        err_add_text("Unsupported key algorithm '%s': require `rsaEncryption'",
                     public_key_algorithm(subjectPublicKeyInfo, name));
        return NOT_SUPPORTED_ERROR;
    }
    if (rsa_public_key_of(subjectPublicKeyInfo, key))
        return 0;
    err_add_text("Unable to convert public key");
    return INVALID_DATA_ERROR;
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
    if (digest_ < 0) {
        err_add_text("Unsupported signature algorithm %s", algorithm);
        return NOT_SUPPORTED_ERROR;
    }
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

int SignatureCheck::compare(ByteStream& stream, size_t offset, size_t size) const {
    uint8_t digest[kMaxDigestSize];
    const int length = digest_stream(stream, offset, size, digest_, digest);
    if (length < 0)
        return -length;
    const auto digestLength = static_cast<size_t>(length);
    if (dsa_.is_open())
        return dsa_.matches(digest, digestLength) ? 0 : -1;
    // The whole block is compared: reading the digest out of it would leave room for forgeries.
    SecretBuffer expected(block_.size());
    if (pkcs1_sign_block(expected.data(), expected.size(), digest, digestLength, digest_, true) != 0)
        return -1;
    return memcmp(expected.data(), block_.data(), expected.size()) == 0 ? 0 : -1;
}

} // namespace zul
