#include "x509/input/x509_input.h"

#include "asn1/asn_header.h"
#include "asn1/asn_parse.h"
#include "frame/err.h"
#include "x509/fields/certificate.h"
#include "x509/input/der_source.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr char kNoCertificate[] = "Not a valid X.509 certificate";

int invalid_data() {
    err_add_text("Invalid ASN.1 data");
    return INVALID_DATA_ERROR;
}

// keep_kind drops an object of another kind.
int keep_kind(AsnList& object, bool (*isKind)(const asn_Node*), const char* failure) {
    if (isKind(object.head()))
        return 0;
    object = AsnList();
    err_add_text("%s", failure);
    return BAD_FORMAT_ERROR;
}

} // namespace

// What follows the first element does not matter.
bool x509_parse_source(DerSource& source, AsnList& object) {
    ByteStream& stream = source.stream();
    AsnHeader header;
    if (!stream.seek(0) || asn_read_header(stream, header) != 1 || header.length > kMaxX509Object ||
        !stream.seek(0))
        return false;
    if (header.ndef == 0 || stream.remaining() <= kMaxX509Object) {
        object = asn_Parse(stream, false, true);
    } else {
        SecretBuffer head(kMaxX509Object);
        ByteStream bounded(head.data(), stream.read(head.data(), head.size()));
        object = asn_Parse(bounded, false, true);
    }
    return static_cast<bool>(object);
}

bool x509_object_from_text(const char* text, AsnList& object) {
    DerSource source;
    return source.open_text(text) && x509_parse_source(source, object);
}

int x509_read_object(const char* fileOrText, AsnList& object) {
    if (x509_object_from_text(fileOrText, object))
        return 0;
    if (has_pem_block(fileOrText))
        return invalid_data();
    DerSource source;
    if (const int error = source.open_file(fileOrText))
        return error;
    return x509_read_object(source, object);
}

int x509_read_object(DerSource& source, AsnList& object) {
    return x509_parse_source(source, object) ? 0 : invalid_data();
}

int x509_read_certificate(const char* fileOrText, AsnList& certificate) {
    const int error = x509_read_object(fileOrText, certificate);
    return error != 0 ? error : keep_kind(certificate, x509_is_certificate, kNoCertificate);
}

int x509_read_certificate(DerSource& source, AsnList& certificate) {
    const int error = x509_read_object(source, certificate);
    return error != 0 ? error : keep_kind(certificate, x509_is_certificate, kNoCertificate);
}

int x509_read_request(const char* fileOrText, AsnList& request) {
    const int error = x509_read_object(fileOrText, request);
    return error != 0 ? error
                      : keep_kind(request, x509_is_request, "Not a valid certificate signing request");
}

bool x509_read_signature(ByteStream& stream, size_t offset, size_t end, AsnList& algorithm, AsnList& value) {
    constexpr size_t kMaxSignature = 1 << 20; // bytes of both
    if (end < offset || end - offset > kMaxSignature || !stream.seek(offset))
        return false;
    // A copy of that part, so that neither element costs more memory than its end allows.
    SecretBuffer part(end - offset);
    if (stream.read(part.data(), part.size()) != part.size())
        return false;
    ByteStream bounded(part.data(), part.size());
    algorithm = asn_Parse(bounded, false, true);
    value = asn_Parse(bounded, false, true);
    return asn_is(algorithm.head(), kAsnConstructed, kAsnSequence) &&
           asn_is(value.head(), kAsnUniversal, kAsnBitString) && bounded.at_end();
}

} // namespace zul
