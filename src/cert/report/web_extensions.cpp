// Extensions of the web's certificates and of OCSP (RFC 6960, 4.4; RFC 6962; RFC 7633; RFC 8737).
#include <iterator>

#include "cert/fields/general_name.h"
#include "cert/fields/oid_names.h"
#include "cert/report/report_extensions.h"
#include "cert/report/report_fields.h"

namespace zul {

namespace {

// show_tls_features writes numbers of TLS extensions (RFC 7633, 4.1).
bool show_tls_features(ReportWriter& report, DerView value) {
    DerView content, number;
    if (!der_single(value, kDerSequence, content))
        return false;
    DerReader reader(content);
    report.begin_words(kExtnValue);
    while (!reader.at_end()) {
        int feature;
        if (!reader.take(kDerInteger, number) || !der_small_integer(number, feature))
            return false;
        if (feature == 5)
            report.word({}, "status_request");
        else if (feature == 17)
            report.word({}, "status_request_v2");
        else
            report.number({}, feature);
    }
    report.end_words();
    return true;
}

// show_nonce takes a nonce that is an OCTET STRING (RFC 9654), or the bare bytes of older responders.
bool show_nonce(ReportWriter& report, DerView value) {
    DerView octets;
    report.bytes(kExtnValue, der_single(value, kDerOctetString, octets) ? octets : value);
    return true;
}

bool show_crl_id(ReportWriter& report, DerView value) {
    DerView content, url, number, time;
    bool hasUrl, hasNumber, hasTime;
    if (!der_single(value, kDerSequence, content))
        return false;
    DerReader fields(content);
    if (!fields.take_optional(der_explicit(0), url, hasUrl) ||
        !fields.take_optional(der_explicit(1), number, hasNumber) ||
        !fields.take_optional(der_explicit(2), time, hasTime) || !fields.at_end())
        return false;
    report.begin_object(kExtnValue);
    DerView inner;
    DerElement element;
    if (hasUrl && der_single(url, kDerIa5String, inner))
        report.ascii("crlUrl", inner);
    else if (hasUrl)
        return false;
    if (hasNumber && (!der_single(number, kDerInteger, inner) || !show_integer(report, "crlNum", inner)))
        return false;
    DerReader reader(time);
    if (hasTime && (!reader.take_any(element) || !reader.at_end() || !show_time(report, "crlTime", element)))
        return false;
    report.end_object();
    return true;
}

bool show_service_locator(ReportWriter& report, DerView value) {
    DerView content;
    DerElement issuer;
    if (!der_single(value, kDerSequence, content))
        return false;
    DerReader fields(content);
    if (!fields.take_any(issuer))
        return false;
    report.begin_object(kExtnValue);
    if (!show_name(report, "issuer", issuer))
        return false;
    if (!fields.at_end())
        report.bytes("locator", fields.rest());
    report.end_object();
    return true;
}

// show_organization writes CABFOrganizationIdentifier (CA/Browser Forum, EV Guidelines, appendix H).
bool show_organization(ReportWriter& report, DerView value) {
    DerView content, state;
    DerElement scheme, country, reference;
    bool hasState;
    if (!der_single(value, kDerSequence, content))
        return false;
    DerReader fields(content);
    if (!fields.take_any(scheme) || !fields.take_any(country) ||
        !fields.take_optional(der_context(0), state, hasState) || !fields.take_any(reference) ||
        !fields.at_end())
        return false;
    report.begin_object(kExtnValue);
    report.string("registrationSchemeIdentifier", scheme);
    report.string("registrationCountry", country);
    if (hasState)
        report.ascii("registrationStateOrProvince", state);
    report.string("registrationReference", reference);
    report.end_object();
    return true;
}

constexpr ExtensionRow kRows[] = {
    {"signedCertificateTimestampList", show_sct_list},
    {"ocspSignedCertificateTimestampList", show_sct_list},
    {"ctPoison", show_value_null},
    {"tlsFeature", show_tls_features},
    {"acmeIdentifier", show_value_octets},
    {"delegationUsage", show_value_null},
    {"cabfOrganizationIdentifier", show_organization},
    {"noRevAvail", show_value_null},
    {"ocspNoCheck", show_value_null},
    {"ocspNonce", show_nonce},
    {"ocspCrl", show_crl_id},
    {"ocspResponse", show_value_oids},
    {"ocspArchiveCutoff", show_value_time},
    {"ocspServiceLocator", show_service_locator},
    {"ocspExtendedRevoke", show_value_null},
};

} // namespace

ExtensionRows web_extensions() {
    return {kRows, std::size(kRows)};
}

} // namespace zul
