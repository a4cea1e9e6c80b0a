#include "x509/verify/verify.h"

#include "asn1/asn_children.h"
#include "asn1/asn_element.h"
#include "asn1/asn_encode.h"
#include "asn1/asn_scope.h"
#include "frame/err.h"
#include "frame/text.h"
#include "x509/fields/certificate.h"
#include "x509/input/der_source.h"
#include "x509/input/x509_input.h"
#include "zulcore.h"

namespace zul {

namespace {

[[nodiscard]] int conclude(int result) {
    if (result >= 0)
        return result;
    err_add_text("Signature did not verify");
    return -1;
}

// check_bytes gives 0 if the signature matches the bytes, else -1.
[[nodiscard]] int check_bytes(const SignatureCheck& check, const SecretBuffer& bytes) {
    uint8_t digest[kMaxDigestSize];
    const int length = hash_bytes(digest, sizeof digest, bytes.data(), static_cast<int64_t>(bytes.size()),
                                  check.digest_algorithm());
    return length > 0 && check.matches(digest, static_cast<size_t>(length)) ? 0 : -1;
}

// find_parts finds the three parts of an object, and refuses any other element: 0, or BAD_FORMAT_ERROR with a
// text.
[[nodiscard]] int find_parts(const asn_Node* object, const char* name, SignedFields& parts) {
    AsnChildren children = AsnChildren::of_sequence(object);
    parts.toBeSigned = children.take_sequence();
    if (parts.toBeSigned == nullptr)
        return err_fail(BAD_FORMAT_ERROR, "Invalid Certificate file '%s'", shown_name(name));
    parts.signatureAlgorithm = children.take_sequence();
    parts.signatureValue = children.take_if(kAsnUniversal, kAsnBitString);
    if (parts.signatureValue == nullptr) // in segments: it is there but will not verify
        parts.signatureValue = children.take_if(kAsnConstructed, kAsnBitString);
    if (parts.signatureAlgorithm == nullptr || parts.signatureValue == nullptr || !children.at_end())
        return err_fail(BAD_FORMAT_ERROR, "Could not find signature in certificate '%s'", shown_name(name));
    return 0;
}

// verify_parts checks the bytes as they stand, then their DER form: some programs sign DER and send BER. It
// gives -1 without a text.
[[nodiscard]] int verify_parts(const asn_Node* subjectPublicKeyInfo, const SignedFields& parts,
                               const char* name) {
    SignatureCheck check;
    int result = check.prepare(subjectPublicKeyInfo, parts.signatureAlgorithm, parts.signatureValue);
    if (result != 0)
        return result;
    const SecretBuffer asItStands = asn_EncodeElement(parts.toBeSigned);
    if (asItStands.empty())
        return err_fail(BAD_FORMAT_ERROR, "Invalid data to-be-signed in certificate '%s'", shown_name(name));
    result = check_bytes(check, asItStands);
    if (result == 0)
        return 0;
    AsnList toBeSigned = asn_CopyElement(parts.toBeSigned);
    if (!asn_IsDer(toBeSigned.head())) {
        const SecretBuffer der = asn_Encode(asn_ToDer(std::move(toBeSigned)));
        if (!der.empty())
            result = check_bytes(check, der);
    }
    return result;
}

} // namespace

int verify_object(const asn_Node* subjectPublicKeyInfo, const asn_Node* object, const char* name) {
    SignedFields parts;
    const int error = find_parts(object, name, parts);
    return error != 0 ? error : conclude(verify_parts(subjectPublicKeyInfo, parts, name));
}

// read_parts finds the signed part, and reads the algorithm and the signature.
bool SignedPass::read_parts(ByteStream& stream, size_t& offset, size_t& size) {
    AsnScope object, toBeSigned;
    if (!stream.seek(0) || !asn_enter(stream, object, kAsnConstructed, kAsnSequence) || object.isOpen)
        return false;
    offset = stream.offset();
    toBeSigned = object;
    if (!asn_enter(stream, toBeSigned, kAsnConstructed, kAsnSequence) || toBeSigned.isOpen)
        return false;
    size = toBeSigned.end - offset;
    return stream.seek(toBeSigned.end) && x509_read_signature(stream, object, algorithm_, value_) &&
           asn_is(value_.head(), kAsnUniversal, kAsnBitString);
}

int SignedPass::begin(const asn_Node* subjectPublicKeyInfo, DerSource& source) {
    stream_ = &source.stream();
    size_t offset, size;
    if (!read_parts(*stream_, offset, size))
        return kOtherForm;
    if (const int result = check_.prepare(subjectPublicKeyInfo, algorithm_.head(), value_.head()))
        return conclude(result);
    if (!stream_->seek(0))
        return kOtherForm;
    digest_init(context_, check_.digest_algorithm());
    stream_->begin_digest(context_, offset, size);
    return 0;
}

int SignedPass::end() {
    uint8_t digest[kMaxDigestSize];
    const bool whole = stream_->end_digest();
    const int length = digest_final(context_, digest);
    return whole && check_.matches(digest, static_cast<size_t>(length)) ? 0 : -1;
}

namespace {

// verify_parsed checks an object for which one pass gave -1 or kOtherForm. It gives -1 without a text.
[[nodiscard]] int verify_parsed(const asn_Node* subjectPublicKeyInfo, DerSource& source, const char* name,
                                int passResult) {
    AsnList object;
    if (passResult == SignedPass::kOtherForm) {
        if (const int error = x509_read_object(source, object))
            return error;
    } else if (!x509_parse_source(source, object) || asn_IsDer(object.head())) {
        return passResult; // DER has no other form
    }
    SignedFields fields;
    if (const int error = find_parts(object.head(), name, fields))
        return source.is_text() ? error : INVALID_DATA_ERROR;
    return verify_parts(subjectPublicKeyInfo, fields, name);
}

} // namespace

int verify_source(const asn_Node* subjectPublicKeyInfo, DerSource& source, const char* name) {
    SignedPass pass;
    int result = pass.begin(subjectPublicKeyInfo, source);
    if (result == 0)
        result = pass.end();
    else if (result != SignedPass::kOtherForm)
        return result;
    if (result == 0)
        return 0;
    return conclude(source.read_result(verify_parsed(subjectPublicKeyInfo, source, name, result)));
}

int verify_input(const char* fileOrText, const char* issuerCert) {
    AsnList issuer;
    DerSource source;
    if (const int error = x509_read_certificate(issuerCert, issuer))
        return error;
    if (const int error = source.open(fileOrText))
        return error;
    return verify_source(certificate_fields(issuer.head()).subjectPublicKeyInfo, source, fileOrText);
}

} // namespace zul
