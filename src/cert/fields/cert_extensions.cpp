#include "cert/fields/cert_extensions.h"

#include <iterator>

#include "cert/fields/cert_oids.h"
#include "cert/fields/general_name.h"
#include "frame/err.h"
#include "zulcore.h"

namespace zul {

namespace {

bool read_octets(DerView value, DerView& octets) {
    return der_single(value, kDerOctetString, octets);
}

// read_list reads a SEQUENCE that is not empty.
bool read_list(DerView value, DerView& content) {
    return der_single(value, kDerSequence, content) && !content.empty();
}

bool read_basic_constraints(DerView value, CertExtensions& extensions) {
    DerView content, flag, number;
    bool found;
    if (!der_single(value, kDerSequence, content))
        return false;
    DerReader fields(content);
    extensions.hasBasicConstraints = true;
    if (!fields.take_optional(kDerBoolean, flag, found) || (found && !der_boolean(flag, extensions.isCa)))
        return false;
    return fields.take_optional(kDerInteger, number, found) &&
           (!found || der_small_integer(number, extensions.pathLength)) && fields.at_end();
}

bool read_key_usage(DerView value, CertExtensions& extensions) {
    DerView bits;
    extensions.hasKeyUsage = true;
    return der_single(value, kDerBitString, bits) && der_flags(bits, extensions.keyUsage);
}

// take_skip_certs reads a number of certificates in [n] of policyConstraints.
bool take_skip_certs(DerReader& fields, unsigned n, int& number) {
    DerView content;
    bool found;
    return fields.take_optional(der_context(n), content, found) &&
           (!found || der_small_integer(content, number));
}

bool read_policy_constraints(DerView value, CertExtensions& extensions) {
    DerView content;
    if (!read_list(value, content))
        return false;
    DerReader fields(content);
    return take_skip_certs(fields, 0, extensions.requireExplicitPolicy) &&
           take_skip_certs(fields, 1, extensions.inhibitPolicyMapping) && fields.at_end();
}

bool read_name_constraints(DerView value, CertExtensions& extensions) {
    DerView content;
    bool found;
    if (!read_list(value, content))
        return false;
    DerReader fields(content);
    extensions.hasNameConstraints = true;
    return fields.take_optional(der_explicit(0), extensions.permitted, found) &&
           fields.take_optional(der_explicit(1), extensions.excluded, found) && fields.at_end();
}

bool read_names(DerView value, DerView& names) {
    return der_single(value, kDerSequence, names) && general_names_are_valid(names);
}

bool read_inhibit_any(DerView value, CertExtensions& extensions) {
    DerView number;
    return der_single(value, kDerInteger, number) && der_small_integer(number, extensions.inhibitAnyPolicy);
}

struct KnownExtension {
    std::string_view oid;
    const char* name;
    bool (*read)(DerView value, CertExtensions& extensions);
};

using E = CertExtensions;
constexpr KnownExtension kKnown[] = {
    {kOidBasicConstraints, "basicConstraints", read_basic_constraints},
    {kOidKeyUsage, "keyUsage", read_key_usage},
    {kOidSubjectKeyIdentifier, "subjectKeyIdentifier",
     [](DerView value, E& e) { return read_octets(value, e.subjectKeyIdentifier); }},
    {kOidAuthorityKeyIdentifier, "authorityKeyIdentifier",
     [](DerView value, E& e) { return authority_key_id_read(value, e.authorityKeyIdentifier); }},
    {kOidExtKeyUsage, "extKeyUsage",
     [](DerView value, E& e) { return read_list(value, e.extKeyUsage) && oid_list_is_valid(e.extKeyUsage); }},
    {kOidSubjectAltName, "subjectAltName",
     [](DerView value, E& e) { return read_names(value, e.subjectAltName); }},
    {kOidIssuerAltName, "issuerAltName",
     [](DerView value, E&) {
         DerView names;
         return read_names(value, names);
     }},
    {kOidNameConstraints, "nameConstraints", read_name_constraints},
    {kOidCertificatePolicies, "certificatePolicies",
     [](DerView value, E& e) { return read_list(value, e.policies); }},
    {kOidPolicyMappings, "policyMappings",
     [](DerView value, E& e) { return read_list(value, e.policyMappings); }},
    {kOidPolicyConstraints, "policyConstraints", read_policy_constraints},
    {kOidInhibitAnyPolicy, "inhibitAnyPolicy", read_inhibit_any},
    {kOidCrlDistributionPoints, "cRLDistributionPoints",
     [](DerView value, E& e) { return read_list(value, e.crlDistributionPoints); }},
    {kOidFreshestCrl, "freshestCRL", [](DerView value, E& e) { return read_list(value, e.freshestCrl); }},
    {kOidAuthorityInfoAccess, "authorityInfoAccess",
     [](DerView value, E&) {
         DerView content;
         return read_list(value, content);
     }},
    {kOidOcspNoCheck, "ocspNoCheck",
     [](DerView value, E& e) {
         DerView content;
         e.ocspNoCheck = der_single(value, kDerNull, content) && content.empty();
         return e.ocspNoCheck;
     }},
};

} // namespace

bool authority_key_id_read(DerView value, AuthorityKeyId& id) {
    DerView content;
    bool found, hasNames, hasSerial;
    if (!der_single(value, kDerSequence, content))
        return false;
    DerReader fields(content);
    return fields.take_optional(der_context(0), id.keyIdentifier, found) &&
           fields.take_optional(der_explicit(1), id.issuerNames, hasNames) &&
           fields.take_optional(der_context(2), id.serialNumber, hasSerial) && fields.at_end() &&
           hasNames == hasSerial && (!hasNames || general_names_are_valid(id.issuerNames)) &&
           (!hasSerial || der_is_integer(id.serialNumber));
}

int cert_extensions_read(const CertificateView& certificate, CertExtensions& extensions) {
    ExtensionReader reader(certificate.extensions);
    ExtensionView extension;
    while (reader.next(extension)) {
        const auto* known = std::begin(kKnown);
        while (known != std::end(kKnown) && !extension.is(known->oid))
            known++;
        if (known != std::end(kKnown)) {
            if (!known->read(extension.value, extensions))
                return err_fail(BAD_FORMAT_ERROR, "Invalid extension %s", known->name);
            if (extension.is(kOidSubjectAltName))
                extensions.subjectAltNameIsCritical = extension.isCritical;
            if (extension.is(kOidExtKeyUsage))
                extensions.extKeyUsageIsCritical = extension.isCritical;
        } else if (extension.isCritical && extensions.unknownCritical.data == nullptr) {
            extensions.unknownCritical = extension.oid;
        }
    }
    return 0;
}

bool oid_list_is_valid(DerView content) {
    DerReader reader(content);
    DerView oid;
    while (!reader.at_end())
        if (!reader.take(kDerOid, oid) || !der_is_oid(oid))
            return false;
    return !content.empty();
}

bool oid_list_has(DerView content, std::string_view oid) {
    DerReader reader(content);
    DerView each;
    while (reader.take(kDerOid, each))
        if (each.text() == oid)
            return true;
    return false;
}

} // namespace zul
