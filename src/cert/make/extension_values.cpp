#include "cert/make/extension_values.h"

#include <algorithm>
#include <iterator>

#include "asn1/asn_build.h"
#include "asn1/oid_dotted.h"
#include "cert/fields/cert_extensions.h"
#include "cert/fields/cert_oids.h"
#include "cert/make/name_values.h"
#include "cert/names/name_build.h"
#include "encode/utf8_scalar.h"
#include "frame/err.h"
#include "frame/slice.h"
#include "key/key_oids.h"
#include "x509/names/pair_reader.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr size_t kNone = std::string_view::npos;
constexpr size_t kMostNotice = 200; // characters (RFC 5280, 4.2.1.4)

struct NamedOid {
    const char* name;
    std::string_view oid;
};

[[nodiscard]] int bad(const char* why) {
    return err_fail(BAD_PARAM_ERROR, "%s", why);
}

// named_oid makes the identifier of a name in a table, or of a dotted text.
template<size_t count>
AsnList named_oid(const NamedOid (&rows)[count], std::string_view text) {
    for (const NamedOid& row : rows)
        if (same_word(text, row.name))
            return oid_node(row.oid);
    return oid_from_dotted(text);
}

constexpr NamedOid kPurposes[] = {
    {"serverAuth", kOidServerAuth},
    {"clientAuth", kOidClientAuth},
    {"codeSigning", kOidCodeSigning},
    {"emailProtection", kOidEmailProtection},
    {"timeStamping", kOidTimeStamping},
    {"OCSPSigning", kOidOcspSigning},
    {"anyExtendedKeyUsage", kOidAnyExtKeyUsage},
    {"ipsecIKE", "\x2B\x06\x01\x05\x05\x07\x03\x11"sv},
    {"documentSigning", "\x2B\x06\x01\x05\x05\x07\x03\x24"sv},
    {"msSmartcardLogon", "\x2B\x06\x01\x04\x01\x82\x37\x14\x02\x02"sv},
    {"msEncryptedFileSystem", "\x2B\x06\x01\x04\x01\x82\x37\x0A\x03\x04"sv},
    {"pkInitKDC", "\x2B\x06\x01\x05\x02\x03\x05"sv},
};

constexpr NamedOid kSubjectMethods[] = {
    {"timeStamping", "\x2B\x06\x01\x05\x05\x07\x30\x03"sv},
    {"caRepository", "\x2B\x06\x01\x05\x05\x07\x30\x05"sv},
};
constexpr NamedOid kAuthorityMethods[] = {{"ocsp", kOidOcsp}, {"caIssuers", kOidCaIssuers}};
constexpr NamedOid kPolicies[] = {{"anyPolicy", kOidAnyPolicy}};

// Extensions that have keywords.
constexpr NamedOid kExtensions[] = {
    {"subjectAltName", kOidSubjectAltName},
    {"keyUsage", kOidKeyUsage},
    {"extKeyUsage", kOidExtKeyUsage},
    {"basicConstraints", kOidBasicConstraints},
    {"tlsFeature", kOidTlsFeature},
    {"noCheck", kOidOcspNoCheck},
    {"subjectKeyIdentifier", kOidSubjectKeyIdentifier},
    {"authorityKeyIdentifier", kOidAuthorityKeyIdentifier},
    {"nameConstraints", kOidNameConstraints},
    {"certificatePolicies", kOidCertificatePolicies},
    {"policyMappings", kOidPolicyMappings},
    {"policyConstraints", kOidPolicyConstraints},
    {"inhibitAnyPolicy", kOidInhibitAnyPolicy},
    {"crlDistributionPoints", kOidCrlDistributionPoints},
    {"freshestCRL", kOidFreshestCrl},
    {"authorityInfoAccess", kOidAuthorityInfoAccess},
    {"subjectInfoAccess", kOidSubjectInfoAccess},
};

AsnList uri_name(std::string_view uri) {
    return asn_NewContextPrim(6, uri.data(), uri.size());
}

[[nodiscard]] int make_notice(AsnList& qualifier, std::string_view text) {
    size_t count = 0;
    for (std::string_view rest = text; !rest.empty(); count++) {
        char32_t c = 0;
        if (!utf8_next(rest, c) || c < 0x20 || (c >= 0x7F && c < 0xA0))
            return bad("Not valid UTF-8, or a control character");
    }
    if (count == 0 || count > kMostNotice)
        return bad("A notice is 1 to 200 characters");
    qualifier =
        asn_NewSequence(asn_Link(oid_node("\x2B\x06\x01\x05\x05\x07\x02\x02"sv),
                                 asn_NewSequence(asn_NewString(kAsnUtf8String, text.data(), text.size()))));
    return 0;
}

} // namespace

int key_usage_bit(uint32_t& bit, std::string_view name) {
    constexpr struct {
        const char* name;
        uint32_t bit;
    } kUsages[] = {
        {"digitalSignature", kUsageDigitalSignature}, {"nonRepudiation", kUsageNonRepudiation},
        {"contentCommitment", kUsageNonRepudiation},  {"keyEncipherment", kUsageKeyEncipherment},
        {"dataEncipherment", kUsageDataEncipherment}, {"keyAgreement", kUsageKeyAgreement},
        {"keyCertSign", kUsageKeyCertSign},           {"cRLSign", kUsageCrlSign},
        {"encipherOnly", kUsageEncipherOnly},         {"decipherOnly", kUsageDecipherOnly},
    };
    for (const auto& row : kUsages) {
        if (same_word(name, row.name)) {
            bit = row.bit;
            return 0;
        }
    }
    return bad("Not a key usage (digitalSignature, nonRepudiation, keyEncipherment, dataEncipherment, "
               "keyAgreement, keyCertSign, cRLSign, encipherOnly, decipherOnly)");
}

int key_purpose_make(AsnList& purpose, std::string_view text) {
    purpose = named_oid(kPurposes, text);
    return purpose ? 0
                   : bad("Not a purpose (serverAuth, clientAuth, emailProtection, codeSigning, timeStamping, "
                         "OCSPSigning, anyExtendedKeyUsage, msSmartcardLogon ..., or a dotted identifier)");
}

int tls_feature_make(AsnList& feature, std::string_view text) {
    int number = same_word(text, "status_request") ? 5 : same_word(text, "status_request_v2") ? 17 : -1;
    if (number < 0 && (small_number_read(number, text) != 0 || number > 0xFFFF))
        return bad("Not a TLS feature (status_request, status_request_v2, or a number)");
    feature = asn_NewInteger(static_cast<uint32_t>(number));
    return 0;
}

int policy_make(AsnList& policy, std::string_view text) {
    constexpr std::string_view kNotice = "notice:";
    const size_t colon = text.find(':');
    AsnList identifier = named_oid(kPolicies, slice(text, 0, colon)), qualifier;
    if (!identifier)
        return bad("A policy is OID, OID:URI or OID:notice:TEXT");
    if (colon != kNone) {
        const std::string_view rest = slice(text, colon + 1);
        if (rest.starts_with(kNotice)) {
            if (const int error = make_notice(qualifier, slice(rest, kNotice.size())))
                return error;
        } else if (const int error = uri_check(rest)) {
            return error;
        } else {
            qualifier = asn_NewSequence(asn_Link(oid_node("\x2B\x06\x01\x05\x05\x07\x02\x01"sv),
                                                 asn_NewString(kAsnIa5String, rest.data(), rest.size())));
        }
        qualifier = asn_NewSequence(std::move(qualifier));
    }
    policy = asn_NewSequence(asn_Link(std::move(identifier), std::move(qualifier)));
    return 0;
}

int policy_mapping_make(AsnList& mapping, std::string_view text) {
    const size_t colon = text.find(':');
    AsnList issuer = oid_from_dotted(slice(text, 0, colon)), subject;
    if (colon != kNone)
        subject = oid_from_dotted(slice(text, colon + 1));
    if (!issuer || !subject)
        return bad("A mapping is OID:OID");
    if (oid_is(issuer.head(), kOidAnyPolicy) || oid_is(subject.head(), kOidAnyPolicy))
        return bad("anyPolicy is not mapped");
    mapping = asn_NewSequence(asn_Link(std::move(issuer), std::move(subject)));
    return 0;
}

int distribution_point_make(AsnList& point, std::string_view uri) {
    point = asn_NewSequence(asn_NewExplicit(0, asn_NewExplicit(0, uri_name(uri))));
    return uri_check(uri);
}

int access_make(AsnList& access, std::string_view method, std::string_view uri) {
    access = asn_NewSequence(asn_Link(named_oid(kAuthorityMethods, method), uri_name(uri)));
    return uri_check(uri);
}

int subject_access_make(AsnList& access, std::string_view text) {
    const size_t colon = text.find(':');
    AsnList method = named_oid(kSubjectMethods, slice(text, 0, colon));
    if (!method || colon == kNone)
        return bad("METHOD:URI, with caRepository, timeStamping or a dotted identifier as method");
    const std::string_view uri = slice(text, colon + 1);
    access = asn_NewSequence(asn_Link(std::move(method), uri_name(uri)));
    return uri_check(uri);
}

int extension_make_any(AsnList& extension, std::string_view text) {
    constexpr std::string_view kCritical = "critical:";
    const size_t colon = text.find(':');
    const AsnList type = oid_from_dotted(slice(text, 0, colon));
    if (!type || colon == kNone)
        return bad("An extension is OID:HEX or OID:critical:HEX");
    const std::string_view oid(reinterpret_cast<const char*>(type.head()->data), type.head()->length);
    if (extension_has_keyword(oid))
        return bad("An extension that has keywords of its own");
    std::string_view value = slice(text, colon + 1);
    const bool isCritical = value.starts_with(kCritical);
    value.remove_prefix(isCritical ? kCritical.size() : 0);
    AsnList element;
    if (const int error = der_element_from_hex(element, value))
        return error;
    extension = extension_make(oid, isCritical, std::move(element));
    return 0;
}

int small_number_read(int& number, std::string_view text) {
    constexpr size_t kMostDigits = 9;
    if (text.empty() || text.size() > kMostDigits || text.find_first_not_of("0123456789") != kNone)
        return bad("Not a number");
    number = 0;
    for (const char c : text)
        number = number * 10 + (c - '0');
    return 0;
}

AsnList extension_make(std::string_view oid, bool isCritical, AsnList value) {
    return asn_NewSequence(asn_LinkList(oid_node(oid), isCritical ? asn_NewBoolean(1) : AsnList(),
                                        asn_NewOctetStringOf(std::move(value))));
}

bool extension_has_keyword(std::string_view oid) {
    return std::any_of(std::begin(kExtensions), std::end(kExtensions),
                       [=](const NamedOid& row) { return row.oid == oid; });
}

SecretBuffer extension_type(std::string_view text) {
    SecretBuffer octets;
    if (const AsnList type = named_oid(kExtensions, text))
        octets.append(type.head()->data, type.head()->length);
    return octets;
}

} // namespace zul
