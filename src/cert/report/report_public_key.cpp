#include "cert/report/report_public_key.h"

#include "cert/report/public_key_fields.h"
#include "cert/report/report_fields.h"

namespace zul {

namespace {

bool take_hex(ReportWriter& report, DerReader& fields, std::string_view key) {
    DerView number;
    return fields.take(kDerInteger, number) && show_hex_integer(report, key, number);
}

// show_rsa writes an RSAPublicKey (RFC 8017, A.1.1).
bool show_rsa(ReportWriter& report, DerView bits) {
    DerView content, exponent;
    if (!der_single(bits, kDerSequence, content))
        return false;
    DerReader fields(content);
    return take_hex(report, fields, "modulus") && fields.take(kDerInteger, exponent) &&
           show_integer(report, "publicExponent", exponent) && fields.at_end();
}

// show_curve writes the a, b and seed of a SpecifiedECDomain's curve (RFC 3279, 2.3.5).
bool show_curve(ReportWriter& report, DerView curve) {
    DerReader fields(curve);
    DerView a, b, bits;
    bool hasSeed;
    if (!fields.take(kDerOctetString, a) || !fields.take(kDerOctetString, b))
        return false;
    report.bytes("a", a);
    report.bytes("b", b);
    if (!fields.take_optional(kDerBitString, bits, hasSeed) || !fields.at_end())
        return false;
    if (hasSeed)
        report.bytes("seed", {bits.data, bits.size});
    return true;
}

bool show_field_id(ReportWriter& report, DerView fieldId) {
    DerReader fields(fieldId);
    DerView type;
    DerElement parameters;
    if (!fields.take(kDerOid, type) || !show_oid(report, "fieldType", type) || !fields.take_any(parameters) ||
        !fields.at_end())
        return false;
    if (parameters.is(kDerInteger))
        return show_hex_integer(report, "prime", parameters.content);
    report.bytes("fieldParameters", parameters.encoding);
    return true;
}

bool show_specified_curve(ReportWriter& report, DerView parameters) {
    DerView content, version, fieldId, curve, base, cofactor;
    bool hasCofactor;
    if (!der_single(parameters, kDerSequence, content))
        return false;
    DerReader fields(content);
    report.begin_object("specifiedCurve");
    if (!fields.take(kDerInteger, version) || !show_integer(report, "version", version) ||
        !fields.take(kDerSequence, fieldId) || !show_field_id(report, fieldId) ||
        !fields.take(kDerSequence, curve) || !show_curve(report, curve) ||
        !fields.take(kDerOctetString, base))
        return false;
    report.bytes("base", base);
    if (!take_hex(report, fields, "order") || !fields.take_optional(kDerInteger, cofactor, hasCofactor) ||
        (hasCofactor && !show_hex_integer(report, "cofactor", cofactor)))
        return false;
    if (!fields.at_end()) // SEC 1, C.2 allows more
        report.bytes("otherParameters", fields.rest());
    report.end_object();
    return true;
}

bool show_curve_parameters(ReportWriter& report, DerView parameters) {
    DerView oid, null;
    if (der_single(parameters, kDerOid, oid))
        return show_oid(report, "namedCurve", oid);
    if (der_single(parameters, kDerNull, null)) {
        report.null("implicitCurve");
        return true;
    }
    return show_specified_curve(report, parameters);
}

bool show_key_number(ReportWriter& report, DerView bits) {
    DerView number;
    return der_single(bits, kDerInteger, number) && show_hex_integer(report, "publicKey", number);
}

// show_numbers writes the parameters of DSA or Diffie-Hellman: INTEGERs with these names, of which those
// behind the first least may be missing.
bool show_numbers(ReportWriter& report, DerView parameters, const std::string_view* names, size_t count,
                  size_t least) {
    DerView content;
    if (!der_single(parameters, kDerSequence, content))
        return false;
    DerReader fields(content);
    size_t i = 0;
    for (; i < count && fields.next_is(kDerInteger); i++)
        if (!take_hex(report, fields, names[i]))
            return false;
    if (!fields.at_end()) // validation of Diffie-Hellman parameters (RFC 3279, 2.3.3)
        report.bytes("otherParameters", fields.rest());
    return i >= least;
}

bool show_group(ReportWriter& report, const PublicKeyView& key) {
    constexpr std::string_view kDsa[] = {"p", "q", "g"}, kDh[] = {"p", "g", "q", "j"},
                               kPkcs3[] = {"prime", "base", "privateValueLength"};
    DerView null;
    if (key.algorithm.parameters.empty() || der_single(key.algorithm.parameters, kDerNull, null))
        return true; // inherited from the issuer's key
    if (key.name == "id-dsa")
        return show_numbers(report, key.algorithm.parameters, kDsa, 3, 3);
    if (key.name == "dhpublicnumber")
        return show_numbers(report, key.algorithm.parameters, kDh, 4, 3);
    return show_numbers(report, key.algorithm.parameters, kPkcs3, 3, 2);
}

bool is_group(const PublicKeyView& key) {
    return key.name == "id-dsa" || key.name == "dhpublicnumber" || key.name == "dhKeyAgreement";
}

void show_parameters(ReportWriter& report, const PublicKeyView& key) {
    constexpr std::string_view kKey = "parameters";
    const DerView parameters = key.algorithm.parameters;
    DerView null;
    show_guarded(report, kKey, parameters, [&] {
        if (public_key_is_ec(key))
            return show_curve_parameters(report, parameters);
        if (is_group(key))
            return show_group(report, key);
        if (parameters.empty() || der_single(parameters, kDerNull, null))
            return true;
        if (key.name == "id-RSASSA-PSS")
            return show_pss_parameters(report, kKey, parameters);
        report.bytes(kKey, parameters);
        return true;
    });
}

} // namespace

bool show_public_key_info(ReportWriter& report, std::string_view field, const DerElement& element) {
    PublicKeyView key;
    if (!public_key_view_read(element.encoding, key))
        return false;
    report.begin_object(field);
    static_cast<void>(show_oid(report, "algorithm", key.algorithm.oid));
    show_parameters(report, key);
    if (const int bits = public_key_bits(key))
        report.number("bits", bits);
    show_guarded(report, "publicKey", key.key, [&] {
        if (public_key_is_rsa(key))
            return show_rsa(report, key.key);
        if (is_group(key))
            return show_key_number(report, key.key);
        report.bytes("publicKey", key.key);
        return true;
    });
    report.end_object();
    return true;
}

} // namespace zul
