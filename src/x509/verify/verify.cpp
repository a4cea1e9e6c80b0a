#include "x509/verify/verify.h"

#include "asn1/asn_children.h"
#include "asn1/asn_element.h"
#include "asn1/asn_encode.h"
#include "asn1/asn_header.h"
#include "asn1/asn_parse.h"
#include "asn1/byte_stream.h"
#include "frame/err.h"
#include "frame/text.h"
#include "x509/fields/certificate.h"
#include "x509/input/der_source.h"
#include "x509/input/x509_input.h"
#include "x509/verify/signature_check.h"
#include "zulcore.h"

namespace zul {

namespace {

int conclude(int result) {
    if (result >= 0)
        return result;
    err_add_text("Signature did not verify");
    return -1;
}

int check_bytes(const SignatureCheck& check, const SecretBuffer& bytes) {
    ByteStream stream(bytes.data(), bytes.size());
    return check.compare(stream, 0, bytes.size());
}

// find_parts finds the parts of an object, which are all that it may hold: 0, or BAD_FORMAT_ERROR with a
// text.
int find_parts(const asn_Node* object, const char* name, SignedFields& parts) {
    AsnChildren children(asn_is(object, kAsnConstructed, kAsnSequence) ? object : nullptr);
    parts.toBeSigned = children.take_sequence();
    if (parts.toBeSigned == nullptr) {
        err_add_text("Invalid Certificate file '%s'", shown_name(name));
        return BAD_FORMAT_ERROR;
    }
    parts.signatureAlgorithm = children.take_sequence();
    parts.signatureValue = children.take_if(kAsnUniversal, kAsnBitString);
    if (parts.signatureValue == nullptr) // segmented: it is there, and will not verify
        parts.signatureValue = children.take_if(kAsnConstructed, kAsnBitString);
    if (parts.signatureAlgorithm == nullptr || parts.signatureValue == nullptr || !children.at_end()) {
        err_add_text("Could not find signature in certificate '%s'", shown_name(name));
        return BAD_FORMAT_ERROR;
    }
    return 0;
}

// is_ber refuses what the parser lets through: a primitive element without a length, which would be a second
// form of the empty one.
bool is_ber(const asn_Node* list) {
    for (; list != nullptr; list = list->next)
        if (list->ndef != 0 && (list->cls & kAsnConstructed) == 0)
            return false;
    return true;
}

// verify_parts checks over the bytes as they stand, then over their DER form: a signer may have encoded
// otherwise than what he signed.
int verify_parts(const asn_Node* subjectPublicKeyInfo, const SignedFields& parts, const char* name) {
    SignatureCheck check;
    int result = check.prepare(subjectPublicKeyInfo, parts.signatureAlgorithm, parts.signatureValue);
    if (result != 0)
        return conclude(result);
    const SecretBuffer asItStands = asn_EncodeElement(parts.toBeSigned);
    if (asItStands.empty()) {
        err_add_text("Invalid data to-be-signed in certificate '%s'", shown_name(name));
        return BAD_FORMAT_ERROR;
    }
    result = check_bytes(check, asItStands);
    if (result != -1)
        return result;
    AsnList toBeSigned = asn_CopyElement(parts.toBeSigned);
    if (!asn_IsDer(toBeSigned.head()) && is_ber(toBeSigned.head())) {
        const SecretBuffer der = asn_Encode(asn_ToDer(std::move(toBeSigned)));
        if (!der.empty())
            result = check_bytes(check, der);
    }
    return conclude(result);
}

// StreamParts are the parts of an object of definite lengths in a stream.
struct StreamParts {
    size_t offset = 0, size = 0; // of what is signed
    AsnList signatureAlgorithm, signatureValue;
};

bool read_parts(ByteStream& stream, StreamParts& parts) {
    size_t algorithmOffset, signatureOffset;
    if (!stream.seek(0) ||
        asn_SplitSigned(stream, &parts.offset, &parts.size, &algorithmOffset, &signatureOffset) != 0)
        return false;
    AsnHeader outer, inner;
    if (!stream.seek(parts.offset) || asn_read_header(stream, inner) != 1 || !stream.seek(0) ||
        asn_read_header(stream, outer) != 1)
        return false;
    const size_t end = stream.offset() + outer.length;
    constexpr uint8_t kSequenceOctet = kAsnConstructed | kAsnSequence;
    return outer.hdr[0] == kSequenceOctet && inner.hdr[0] == kSequenceOctet &&
           x509_read_signature(stream, algorithmOffset, end, parts.signatureAlgorithm, parts.signatureValue);
}

} // namespace

int verify_object(const asn_Node* subjectPublicKeyInfo, const asn_Node* object, const char* name) {
    SignedFields parts;
    const int error = find_parts(object, name, parts);
    return error != 0 ? error : verify_parts(subjectPublicKeyInfo, parts, name);
}

int verify_source(const asn_Node* subjectPublicKeyInfo, DerSource& source, const char* name) {
    ByteStream& stream = source.stream();
    StreamParts parts;
    AsnList object;
    if (read_parts(stream, parts)) {
        SignatureCheck check;
        int result =
            check.prepare(subjectPublicKeyInfo, parts.signatureAlgorithm.head(), parts.signatureValue.head());
        if (result == 0)
            result = check.compare(stream, parts.offset, parts.size);
        const bool mayHaveDerForm =
            result == -1 && x509_parse_source(source, object) && !asn_IsDer(object.head());
        if (!mayHaveDerForm)
            return conclude(result);
    } else if (const int error = x509_read_object(source, object)) {
        return error;
    }
    SignedFields fields;
    if (const int error = find_parts(object.head(), name, fields))
        return source.is_text() ? error : INVALID_DATA_ERROR;
    return verify_parts(subjectPublicKeyInfo, fields, name);
}

int verify_input(const asn_Node* subjectPublicKeyInfo, const char* fileOrText) {
    DerSource source;
    if (const int error = source.open(fileOrText))
        return error;
    return verify_source(subjectPublicKeyInfo, source, fileOrText);
}

} // namespace zul
