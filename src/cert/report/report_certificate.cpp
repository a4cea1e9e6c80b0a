// Certificates (RFC 5280, 4.1) and requests (RFC 2986, 4) in reports.
#include "cert/fields/oid_names.h"
#include "cert/report/report_fields.h"
#include "cert/report/report_objects.h"
#include "cert/report/report_public_key.h"

namespace zul {

namespace {

// show_version takes an explicit [0]; 0 is version 1.
bool show_version(ReportWriter& report, const DerElement& element) {
    DerView number;
    int version;
    if (!der_single(element.content, kDerInteger, number) || !der_small_integer(number, version))
        return false;
    report.number("version", int64_t{version} + 1);
    return true;
}

bool show_validity(ReportWriter& report, const DerElement& element) {
    if (!element.is(kDerSequence))
        return false;
    report.begin_object("validity");
    FieldWalk fields(report, element.content);
    fields.take("notBefore", [&](const DerElement& time) { return show_time(report, "notBefore", time); });
    fields.take("notAfter", [&](const DerElement& time) { return show_time(report, "notAfter", time); });
    fields.finish("otherFields");
    report.end_object();
    return true;
}

// show_unique_id writes an implicit BIT STRING.
bool show_unique_id(ReportWriter& report, std::string_view key, const DerElement& element) {
    DerView bits;
    unsigned unused;
    if (!der_bits(element.content, bits, unused))
        return false;
    report.bytes(key, bits);
    return true;
}

// show_extension_field writes the content of an explicit tag, a SEQUENCE OF Extension.
bool show_extension_field(ReportWriter& report, const DerElement& element) {
    DerView extensions;
    if (!der_single(element.content, kDerSequence, extensions))
        return false;
    show_extensions(report, "extensions", extensions);
    return true;
}

void show_certificate_fields(ReportWriter& report, FieldWalk& fields) {
    if (!fields.take_if(der_explicit(0), "version",
                        [&](const DerElement& e) { return show_version(report, e); }))
        report.number("version", 1);
    fields.take("serialNumber", [&](const DerElement& e) {
        return e.is(kDerInteger) && show_hex_integer(report, "serialNumber", e.content);
    });
    fields.take("signature", [&](const DerElement& e) {
        return show_algorithm(report, "signature", "signatureParameters", e);
    });
    fields.take("issuer", [&](const DerElement& e) { return show_name(report, "issuer", e); });
    fields.take("validity", [&](const DerElement& e) { return show_validity(report, e); });
    fields.take("subject", [&](const DerElement& e) { return show_name(report, "subject", e); });
    fields.take("subjectPublicKeyInfo",
                [&](const DerElement& e) { return show_public_key_info(report, "subjectPublicKeyInfo", e); });
    fields.take_if(der_context(1), "issuerUniqueID",
                   [&](const DerElement& e) { return show_unique_id(report, "issuerUniqueID", e); });
    fields.take_if(der_context(2), "subjectUniqueID",
                   [&](const DerElement& e) { return show_unique_id(report, "subjectUniqueID", e); });
    fields.take_if(der_explicit(3), "extensions",
                   [&](const DerElement& e) { return show_extension_field(report, e); });
    fields.finish("otherFields");
}

bool show_attribute(ReportWriter& report, const DerElement& element) {
    DerReader fields(element.content);
    DerView type, values, extensions;
    if (!element.is(kDerSequence) || !fields.take(kDerOid, type) || !fields.take(kDerSet, values) ||
        !fields.at_end())
        return false;
    report.begin_object({});
    if (!show_oid(report, "type", type))
        return false;
    const std::string_view name = oid_name(type);
    if ((name == "extensionRequest" || name == "certExtensions") &&
        der_single(values, kDerSequence, extensions))
        show_extensions(report, "extensions", extensions);
    else
        show_attribute_values(report, values);
    report.end_object();
    return true;
}

bool show_attributes(ReportWriter& report, const DerElement& element) {
    DerReader reader(element.content);
    DerElement attribute;
    report.begin_list("attributes");
    while (reader.take_any(attribute))
        show_guarded(report, {}, attribute.encoding, [&] { return show_attribute(report, attribute); });
    report.end_list();
    return reader.at_end();
}

void show_request_fields(ReportWriter& report, FieldWalk& fields) {
    fields.take("version", [&](const DerElement& e) {
        int version;
        if (!e.is(kDerInteger) || !der_small_integer(e.content, version))
            return false;
        report.number("version", int64_t{version} + 1);
        return true;
    });
    fields.take("subject", [&](const DerElement& e) { return show_name(report, "subject", e); });
    fields.take("subjectPKInfo",
                [&](const DerElement& e) { return show_public_key_info(report, "subjectPKInfo", e); });
    fields.take_if(der_explicit(0), "attributes",
                   [&](const DerElement& e) { return show_attributes(report, e); });
    fields.finish("otherFields");
}

} // namespace

void show_signed(ReportWriter& report, DerView encoding, std::string_view signatureKey,
                 void (*show)(ReportWriter& report, FieldWalk& fields)) {
    DerView content;
    static_cast<void>(der_single(encoding, kDerSequence, content));
    DerReader outer(content);
    DerElement toBeSigned;
    if (!outer.take_any(toBeSigned))
        return report.malformed("toBeSigned", content);
    FieldWalk inner(report, toBeSigned.content);
    show(report, inner);
    FieldWalk rest(report, outer.rest());
    rest.take("signatureAlgorithm", [&](const DerElement& e) {
        return show_algorithm(report, "signatureAlgorithm", "signatureAlgorithmParameters", e);
    });
    rest.take(signatureKey, [&](const DerElement& e) { return show_bits(report, signatureKey, e); });
    show_fingerprints(report, encoding);
}

void show_certificate(ReportWriter& report, DerView encoding) {
    show_signed(report, encoding, "signatureValue", show_certificate_fields);
}

void show_request(ReportWriter& report, DerView encoding) {
    show_signed(report, encoding, "signature", show_request_fields);
}

} // namespace zul
