// Verification of signed messages: RFC 5652, 5.4 to 5.6.
#include "cms/signed/signed_data_verify.h"

#include <cstring>

#include "asn1/asn_value.h"
#include "cms/signed/content_digest.h"
#include "cms/signed/signed_data.h"
#include "cms/signed/signer_certificate.h"
#include "cms/signed/signer_check.h"
#include "encode/hex.h"
#include "frame/err.h"
#include "frame/text.h"
#include "hash/digest.h"
#include "x509/fields/certificate.h"
#include "zulcore.h"

namespace zul {
namespace {

struct Digest {
    uint8_t bytes[kMaxDigestSize];
    size_t size = 0;

    bool equals(const uint8_t* other, size_t otherSize) const {
        return size == otherSize && memcmp(bytes, other, size) == 0;
    }
};

[[nodiscard]] int digests_differ() {
    return err_fail(SIGNATURE_ERROR, "Message digests do not match");
}

[[nodiscard]] int read_given_digest(const char* hex, Digest& given) {
    if (is_missing(hex))
        return 0;
    given.size = hex_decoded_length(hex);
    if (given.size == 0 || given.size > sizeof given.bytes)
        return err_fail(INVALID_DATA_ERROR, "Invalid user-supplied digest, perhaps invalid hex");
    hex_decode(given.bytes, given.size, hex);
    return 0;
}

// Verification goes step by step over one message; each step gives 0 or a positive code with a text.
class Verification {
  public:
    int open(const char* fileOrText, const char* cert);
    bool has_attributes() const { return match_.signer.signedAttributes != nullptr; }
    bool has_content() const { return message_.has_content(); }

    // After check_signature the digest that signed_digest gives is the signer's. Only the content is
    // unchecked.
    int check_signature();
    const SecretBuffer& signed_digest() const {
        return has_attributes() ? attributeDigest_ : check_.recovered();
    }
    int check_content(const Digest& given);

  private:
    int read_attributes();
    int check_attributes() const;
    bool is_signed(const Digest& digest) const;

    SignedData message_;
    SignerMatch match_;
    int algorithm_ = -1;
    SignerCheck check_;
    SecretBuffer attributeDigest_;
};

int Verification::open(const char* fileOrText, const char* cert) {
    int error = message_.open(fileOrText);
    if (error == 0)
        error = message_.require_data();
    if (error == 0)
        error = find_signer(message_, cert, match_);
    if (error != 0)
        return error;
    algorithm_ = digest_algorithm_of(match_.signer.digestAlgorithm);
    if (algorithm_ < 0)
        return err_fail(NOT_SUPPORTED_ERROR, "Invalid or unsupported digestAlgorithm");
    return has_attributes() ? read_attributes() : 0;
}

// read_attributes demands exactly one value of those attributes that bind the content.
int Verification::read_attributes() {
    const asn_Node *digest, *type;
    const int digests = find_attribute(match_.signer.signedAttributes, "messageDigest", &digest);
    if (digests != 1 || !asn_GetOctets(digest, attributeDigest_))
        return err_fail(INVALID_DATA_ERROR, "%s",
                        digests == 0 ? "No messageDigest in the signed attributes"
                                     : "Invalid messageDigest in the signed attributes");
    if (attributeDigest_.size() != digest_length(algorithm_))
        return digests_differ();
    const int types = find_attribute(match_.signer.signedAttributes, "contentType", &type);
    if (types > 1)
        return err_fail(INVALID_DATA_ERROR, "Invalid contentType in the signed attributes");
    const asn_Node* expected = message_.content_type();
    const bool same = types == 0 || (asn_is(type, kAsnUniversal, kAsnOid) && type->length != 0 &&
                                     type->length == expected->length &&
                                     memcmp(type->data, expected->data, type->length) == 0);
    return same ? 0 : err_fail(SIGNATURE_ERROR, "contentType attribute differs from eContentType");
}

int Verification::check_signature() {
    const CertificateFields certificate = certificate_fields(match_.certificate.head());
    const int error = check_.prepare(certificate.subjectPublicKeyInfo, match_.signer, algorithm_);
    return error == 0 && has_attributes() ? check_attributes() : error;
}

// check_attributes tries the bytes as they stand, then their DER form, since a signer may send another
// encoding than the one he signed.
int Verification::check_attributes() const {
    for (const bool der : {false, true}) {
        const SecretBuffer set = signed_attributes_set(match_.signer.signedAttributes, der);
        if (set.empty())
            continue;
        uint8_t digest[kMaxDigestSize];
        const int length =
            hash_bytes(digest, sizeof digest, set.data(), static_cast<int64_t>(set.size()), algorithm_);
        if (check_.matches(digest, static_cast<size_t>(length)))
            return 0;
    }
    return err_fail(SIGNATURE_ERROR, "Signature did not verify");
}

bool Verification::is_signed(const Digest& digest) const {
    if (!has_attributes())
        return check_.matches(digest.bytes, digest.size);
    return digest.equals(attributeDigest_.data(), attributeDigest_.size());
}

int Verification::check_content(const Digest& given) {
    Digest digest;
    digest.size = digest_length(algorithm_);
    // DSA takes a digest as a number, so leading zeros would not change it. The length is therefore checked.
    if (given.size != 0 && (given.size != digest.size || !is_signed(given)))
        return digests_differ();
    if (!has_content())
        return 0;
    if (!has_attributes() && is_attribute_set(message_.content()))
        return err_fail(SIGNATURE_ERROR, "The content is a set of signed attributes");
    const int error = content_digest(message_.content(), algorithm_, digest.bytes);
    if (error != 0)
        return error;
    return is_signed(digest) ? 0 : digests_differ();
}

} // namespace

int verify_signed_data(const char* fileOrText, const char* cert, const char* hexDigest) {
    Digest given;
    int error = read_given_digest(hexDigest, given);
    Verification verification;
    if (error == 0)
        error = verification.open(fileOrText, cert);
    if (error == 0 && given.size == 0 && !verification.has_content())
        error = err_fail(NO_DATA_ERROR, "No content found in SignedData object");
    if (error == 0)
        error = verification.check_signature();
    return error != 0 ? error : verification.check_content(given);
}

int signed_data_digest(const char* fileOrText, const char* cert, SecretBuffer& digest) {
    Verification verification;
    int error = verification.open(fileOrText, cert);
    if (error == 0)
        error = verification.check_signature();
    if (error != 0)
        return error;
    const SecretBuffer& found = verification.signed_digest();
    if (found.empty())
        return err_fail(NOT_SUPPORTED_ERROR, "Cannot recover digest if signed with DSA and no signedAttrs");
    digest.append(found.data(), found.size());
    return 0;
}

} // namespace zul
