#include "cms/signed/signed_data_make.h"

#include <cstring>

#include "asn1/asn_build.h"
#include "asn1/asn_encode.h"
#include "cms/content/content_input.h"
#include "cms/signed/carried_certificates.h"
#include "cms/signed/signed_attributes.h"
#include "cms/signed/signed_data_build.h"
#include "encode/hex.h"
#include "frame/err.h"
#include "hash/digest.h"
#include "rsa/rsa_der.h"
#include "rsa/rsa_key_string.h"
#include "rsa/rsa_signature.h"
#include "x509/fields/signature_algorithm.h"
#include "x509/fields/subject_public_key.h"
#include "zulcore.h"

namespace zul {
namespace {

bool has(int options, int flag) {
    return (options & flag) != 0;
}

// Digest is that of a content or of its signed attributes.
struct Digest {
    int algorithm = 0;
    size_t length = 0;
    uint8_t bytes[kMaxDigestSize];

    [[nodiscard]] int choose(int options) { // 0 or BAD_FLAG_ERROR
        algorithm = options & kDigestAlgorithmMask;
        length = algorithm <= kDigestSha224 ? digest_length(algorithm) : 0;
        return length != 0 ? 0 : BAD_FLAG_ERROR;
    }
    void take(const void* data, size_t size) {
        static_cast<void>(
            hash_bytes(bytes, int{kMaxDigestSize}, data, static_cast<int64_t>(size), algorithm));
    }
};

// signature_algorithm_name gives the name for the SignerInfo. It tests single bits of the digest's number, in
// this order, because programs that read these messages expect the resulting names.
const char* signature_algorithm_name(int options) {
    if (!has(options, ZUL_CMS_NAMED_SIGALG))
        return "rsaEncryption";
    static constexpr struct {
        int mask, digest;
    } kTests[] = {
        {1, kDigestMd5}, {2, kDigestMd2}, {3, kDigestSha256}, {4, kDigestSha384}, {5, kDigestSha512}};
    for (const auto& test : kTests)
        if (has(options, test.mask))
            return rsa_signature_algorithm(test.digest);
    return rsa_signature_algorithm(kDigestSha1);
}

// SignedMessage is a message in the making.
struct SignedMessage {
    Digest digest;      // of the content
    AsnList content;    // OCTET STRING, or nothing
    AsnList attributes; // SET OF, or nothing
    SecretBuffer signature;
    CarriedCertificates certificates;

    int sign(const char* privateKey, int options);
    int write(const char* path, int options);
};

// sign fills in attributes and signature.
int SignedMessage::sign(const char* privateKey, int options) {
    RsaKey key;
    if (const int error = rsa_open_private(privateKey, key))
        return err_fail(error, "Invalid Private Key");
    Digest signedDigest = digest;
    if (has(options, ZUL_CMS_INCLUDE_ATTRS)) {
        attributes = signed_attributes_make(digest.bytes, digest.length, options);
        const SecretBuffer encoding = asn_Encode(attributes);
        if (encoding.empty())
            return INVALID_DATA_ERROR;
        signedDigest.take(encoding.data(), encoding.size());
    }
    signature =
        rsa_make_signature(key, signedDigest.bytes, signedDigest.length, signedDigest.algorithm, true);
    return signature.empty() ? err_fail(SIGNATURE_ERROR, "RSA encryption failed") : 0;
}

int SignedMessage::write(const char* path, int options) {
    constexpr uint32_t kVersion = 1;
    AsnList signer = issuer_and_serial_number(certificates.signer());
    if (!signer)
        return err_fail(INVALID_DATA_ERROR, "Cannot find issuer and serial number of certificate");
    if (attributes) { // [0] IMPLICIT
        asn_Node* const set = attributes.head();
        set->cls = kAsnExplicit;
        set->tag = 0;
        set->hdrsize = 0;
    }
    SignedDataParts parts;
    parts.signerInfo = asn_NewSequence(asn_LinkList(
        asn_NewInteger(kVersion), std::move(signer), asn_NewHashAlgId(digest.algorithm),
        std::move(attributes), rsa_signature_algorithm_identifier(signature_algorithm_name(options)),
        asn_NewOctetString(signature.data(), signature.size())));
    parts.digestAlgorithm = asn_NewHashAlgId(digest.algorithm);
    parts.content = std::move(content);
    parts.certificates = certificates.set();
    return write_signed_data(path, std::move(parts), options, nullptr);
}

// take_content digests a content in memory and keeps a copy if the message carries it.
[[nodiscard]] int take_content(SignedMessage& message, const void* content, size_t size, int options) {
    if (const int error = message.digest.choose(options))
        return error;
    if (!has(options, ZUL_CMS_EXCLUDE_DATA))
        if (const int error = content_from_bytes(content, size, {}, message.content))
            return error;
    message.digest.take(content, size);
    return 0;
}

// take_file tells of a file that cannot be read before it tells of an unknown digest.
[[nodiscard]] int take_file(SignedMessage& message, const char* path, int options) {
    const int unknownDigest = message.digest.choose(options);
    bool isEmpty = false;
    if (unknownDigest != 0 || has(options, ZUL_CMS_EXCLUDE_DATA)) {
        const int algorithm = unknownDigest != 0 ? int{kDigestSha1} : message.digest.algorithm;
        if (const int error = content_digest_of_file(path, algorithm, message.digest.bytes, isEmpty))
            return error;
    } else {
        if (const int error = content_from_file(path, {}, message.content))
            return error;
        const asn_Node* element = message.content.head();
        isEmpty = element->length == 0;
        message.digest.take(element->data, element->length);
    }
    return isEmpty ? err_fail(NO_DATA_ERROR, "No data to sign") : unknownDigest;
}

[[nodiscard]] int take_hex_digest(Digest& digest, const char* hex, int options) {
    if (const int error = digest.choose(options))
        return error;
    const size_t size = hex_decoded_length(hex);
    if (size == 0 || size > kMaxDigestSize)
        return err_fail(INVALID_DATA_ERROR, "Invalid message digest, perhaps invalid hex");
    if (size != digest.length)
        return err_fail(BAD_LENGTH_ERROR, "Message digest is not the correct length");
    hex_decode(digest.bytes, digest.length, hex);
    return 0;
}

[[nodiscard]] int read_certificates(SignedMessage& message, const CertificateArguments& list, int options) {
    return message.certificates.read_for_signer(list, !has(options, ZUL_CMS_EXCLUDE_CERTS));
}

[[nodiscard]] int bad_list() {
    return err_fail(BAD_PARAM_ERROR, "Error parsing certificate list");
}

// make_message makes the message of what has been digested.
[[nodiscard]] int make_message(SignedMessage& message, const char* path, const char* certList,
                               const char* privateKey, int options) {
    const CertificateArguments list(certList);
    if (list.count() == 0)
        return bad_list();
    int error = message.sign(privateKey, options);
    if (error == 0)
        error = read_certificates(message, list, options);
    return error != 0 ? error : message.write(path, options);
}

} // namespace

int make_signed_file(const char* path, const char* contentFile, const char* certList, const char* privateKey,
                     int options) {
    SignedMessage message;
    const int error = take_file(message, contentFile, options);
    return error != 0 ? error : make_message(message, path, certList, privateKey, options);
}

int make_signed_bytes(const char* path, const void* content, size_t size, const char* certList,
                      const char* privateKey, int options) {
    SignedMessage message;
    const int error = take_content(message, content, size, options);
    return error != 0 ? error : make_message(message, path, certList, privateKey, options);
}

int make_detached_signature(const char* path, const char* hexDigest, const char* certList,
                            const char* privateKey, int options) {
    SignedMessage message;
    const int error = take_hex_digest(message.digest, hexDigest, options);
    return error != 0 ? error : make_message(message, path, certList, privateKey, options);
}

int make_signed_with_value(const char* path, const uint8_t* signature, size_t signatureLen,
                           const void* content, size_t size, const char* certList, int options) {
    SignedMessage message;
    if (const int error = take_content(message, content, size, options))
        return error;
    const CertificateArguments list(certList);
    if (list.count() == 0)
        return bad_list();
    if (const int error = read_certificates(message, list, options))
        return error;
    RsaKey key;
    if (!rsa_public_key_of(message.certificates.signer().subjectPublicKeyInfo, key) ||
        !rsa_exponent_is_safe(key))
        return err_fail(SIGNATURE_ERROR, "Cannot read RSA public key of first certificate");
    if (!rsa_signature_is(key, signature, signatureLen, message.digest.bytes, message.digest.length,
                          message.digest.algorithm))
        return err_fail(SIGNATURE_ERROR, "Verification of supplied signature value failed");
    message.signature.append(signature, signatureLen);
    return message.write(path, options);
}

} // namespace zul
