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

// keep_kind drops an object of another kind.
[[nodiscard]] int keep_kind(AsnList& object, bool (*isKind)(const asn_Node*), const char* failure) {
    if (isKind(object.head()))
        return 0;
    object = AsnList();
    return err_fail(BAD_FORMAT_ERROR, "%s", failure);
}

} // namespace

// Bytes after the first element are ignored.
bool x509_parse_source(DerSource& source, AsnList& object) {
    ByteStream& stream = source.stream();
    AsnHeader header;
    if (!stream.seek(0) || asn_read_header(stream, header) != 1 || header.length > kMaxX509Object ||
        !stream.seek(0))
        return false;
    if (header.ndef == 0 || stream.remaining() <= kMaxX509Object) {
        object = asn_Parse(stream, false, true, kX509NameLevel);
    } else {
        SecretBuffer head(kMaxX509Object);
        ByteStream bounded(head.data(), stream.read(head.data(), head.size()));
        object = asn_Parse(bounded, false, true, kX509NameLevel);
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
        return invalid_asn1_data();
    DerSource source;
    if (const int error = source.open_file(fileOrText))
        return error;
    return x509_read_object(source, object);
}

int x509_read_object(DerSource& source, AsnList& object) {
    return x509_parse_source(source, object) ? 0 : source.read_result(invalid_asn1_data());
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

bool x509_read_signature(ByteStream& stream, const AsnScope& object, AsnList& algorithm, AsnList& value) {
    constexpr size_t kMaxSize = 1 << 20; // bytes of each
    const bool segmented =
        !asn_read_element(stream, object, kAsnConstructed, kAsnSequence, kMaxSize, algorithm) ||
        asn_next_is(stream, object, kAsnConstructed, kAsnBitString);
    if (!algorithm || !asn_read_element(stream, object, segmented ? kAsnConstructed : kAsnUniversal,
                                        kAsnBitString, kMaxSize, value))
        return false;
    return asn_leave(stream, object);
}

} // namespace zul
