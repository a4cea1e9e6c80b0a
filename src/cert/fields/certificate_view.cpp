#include "cert/fields/certificate_view.h"

#include "cert/fields/cert_oids.h"
#include "frame/err.h"
#include "zulcore.h"

namespace zul {

namespace {

[[nodiscard]] int bad_field(const char* object, const char* field) {
    return err_fail(BAD_FORMAT_ERROR, "Invalid %s: %s", object, field);
}

bool take_sequence(DerReader& reader, DerView& encoding) {
    DerElement element;
    if (!reader.next_is(kDerSequence) || !reader.take_any(element))
        return false;
    encoding = element.encoding;
    return true;
}

bool take_time(DerReader& reader, DerElement& element, int64_t& seconds) {
    return reader.take_any(element) && der_time(element, seconds);
}

bool take_version(DerReader& reader, int& version) {
    DerView outer, number;
    bool found;
    if (!reader.take_optional(der_explicit(0), outer, found))
        return false;
    version = 1;
    if (!found)
        return true;
    if (!der_single(outer, kDerInteger, number) || !der_small_integer(number, version) || version > 2)
        return false;
    version++;
    return true;
}

bool take_validity(DerReader& reader, CertificateView& certificate) {
    DerView validity;
    if (!reader.take(kDerSequence, validity))
        return false;
    DerReader times(validity);
    return take_time(times, certificate.notBeforeTime, certificate.notBefore) &&
           take_time(times, certificate.notAfterTime, certificate.notAfter) && times.at_end();
}

// take_extensions takes the unique identifiers, which nobody uses, and the extensions.
bool take_extensions(DerReader& reader, CertificateView& certificate) {
    DerView ignored, outer;
    bool found;
    for (unsigned i = 1; i <= 2; i++)
        if (!reader.take_optional(der_context(i), ignored, found) || (found && certificate.version == 1))
            return false;
    if (!reader.take_optional(der_explicit(3), outer, found) || !reader.at_end())
        return false;
    certificate.extensions = {};
    return !found || (certificate.version == 3 && der_single(outer, kDerSequence, certificate.extensions) &&
                      extensions_are_valid(certificate.extensions));
}

// find_requested reads the extensions that a request asks for. It may do so once.
bool find_requested(RequestView& request) {
    DerReader attributes(request.attributes);
    request.extensions = {};
    while (!attributes.at_end()) {
        DerView attribute, type, values;
        if (!attributes.take(kDerSequence, attribute))
            return false;
        DerReader fields(attribute);
        if (!fields.take(kDerOid, type) || !fields.take(kDerSet, values) || !fields.at_end())
            return false;
        if (type.text() != kOidExtensionRequest)
            continue;
        if (request.extensions.data != nullptr || !der_single(values, kDerSequence, request.extensions) ||
            !extensions_are_valid(request.extensions))
            return false;
    }
    return true;
}

} // namespace

int certificate_view_read(DerView encoding, CertificateView& certificate) {
    constexpr char kObject[] = "certificate";
    DerView content;
    if (!signed_view_read(encoding, certificate) ||
        !der_single(certificate.toBeSigned, kDerSequence, content))
        return bad_field(kObject, "not a SEQUENCE of three fields in DER");
    DerReader fields(content);
    if (!take_version(fields, certificate.version))
        return bad_field(kObject, "version");
    if (!fields.take(kDerInteger, certificate.serialNumber) || !der_is_integer(certificate.serialNumber))
        return bad_field(kObject, "serialNumber");
    if (!algorithm_view_read(fields, certificate.innerAlgorithm))
        return bad_field(kObject, "signature");
    if (!take_sequence(fields, certificate.issuer))
        return bad_field(kObject, "issuer");
    if (!take_validity(fields, certificate))
        return bad_field(kObject, "validity");
    if (!take_sequence(fields, certificate.subject))
        return bad_field(kObject, "subject");
    if (!take_sequence(fields, certificate.publicKeyInfo))
        return bad_field(kObject, "subjectPublicKeyInfo");
    return take_extensions(fields, certificate) ? 0 : bad_field(kObject, "extensions");
}

int request_view_read(DerView encoding, RequestView& request) {
    constexpr char kObject[] = "certificate request";
    DerView content, version;
    if (!signed_view_read(encoding, request) || !der_single(request.toBeSigned, kDerSequence, content))
        return bad_field(kObject, "not a SEQUENCE of three fields in DER");
    DerReader fields(content);
    int number;
    if (!fields.take(kDerInteger, version) || !der_small_integer(version, number) || number != 0)
        return bad_field(kObject, "version");
    if (!take_sequence(fields, request.subject))
        return bad_field(kObject, "subject");
    if (!take_sequence(fields, request.publicKeyInfo))
        return bad_field(kObject, "subjectPublicKeyInfo");
    bool found;
    request.attributes = {};
    if (!fields.take_optional(der_explicit(0), request.attributes, found) || !fields.at_end() ||
        !find_requested(request))
        return bad_field(kObject, "attributes");
    return 0;
}

} // namespace zul
