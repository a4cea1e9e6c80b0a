// Queries about extensions. One that is malformed is an error; others do not matter.
#include <iterator>

#include "cert/fields/cert_extensions.h"
#include "cert/fields/cert_oids.h"
#include "cert/fields/oid_names.h"
#include "cert/names/name_print.h"
#include "cert/names/string_value.h"
#include "cert/query/query_object.h"
#include "cert/report/report_fields.h"
#include "cert/report/sct_list.h"
#include "frame/err.h"
#include "zulcore.h"

namespace zul {

namespace {

using Object = QueryObject;

[[nodiscard]] int malformed(const char* name) {
    return err_fail(BAD_FORMAT_ERROR, "Invalid extension %s", name);
}

// find_sequence gives the content of an extension that is a SEQUENCE: null data if there is none.
[[nodiscard]] int find_sequence(const Object& object, std::string_view oid, const char* name,
                                DerView& content) {
    ExtensionView extension;
    content = {};
    if (!find_extension(object.extensions, oid, extension))
        return 0;
    return der_single(extension.value, kDerSequence, content) ? 0 : malformed(name);
}

int write_subject_key_id(TextBuffer& out, const Object& object) {
    ExtensionView extension;
    DerView octets;
    if (!find_extension(object.extensions, kOidSubjectKeyIdentifier, extension))
        return 0;
    if (!der_single(extension.value, kDerOctetString, octets))
        return malformed("subjectKeyIdentifier");
    out.put_hex(octets.data, octets.size);
    return 0;
}

int write_authority_key_id(TextBuffer& out, const Object& object) {
    ExtensionView extension;
    AuthorityKeyId id;
    if (!find_extension(object.extensions, kOidAuthorityKeyIdentifier, extension))
        return 0;
    if (!authority_key_id_read(extension.value, id))
        return malformed("authorityKeyIdentifier");
    out.put_hex(id.keyIdentifier.data, id.keyIdentifier.size);
    return 0;
}

int write_key_usage(TextBuffer& out, const Object& object) {
    ExtensionView extension;
    DerView bits;
    uint32_t usage;
    if (!find_extension(object.extensions, kOidKeyUsage, extension))
        return 0;
    if (!der_single(extension.value, kDerBitString, bits) || !der_flags(bits, usage))
        return malformed("keyUsage");
    AnswerLines lines(out);
    for (size_t bit = 0; bit < kKeyUsageNames; bit++)
        if ((usage >> bit & 1) != 0)
            lines.next().put(kKeyUsageName[bit]);
    return 0;
}

int write_purposes(TextBuffer& out, const Object& object) {
    DerView content, oid;
    if (const int error = find_sequence(object, kOidExtKeyUsage, "extKeyUsage", content))
        return error;
    AnswerLines lines(out);
    DerReader reader(content);
    while (reader.take(kDerOid, oid))
        put_oid(lines.next(), oid);
    return reader.at_end() ? 0 : malformed("extKeyUsage");
}

// read_constraints gives false without an error for an object that has none.
[[nodiscard]] int read_constraints(const Object& object, bool& isCa, DerView& pathLength) {
    DerView content, flag;
    bool hasFlag, hasLength;
    isCa = false;
    if (const int error = find_sequence(object, kOidBasicConstraints, "basicConstraints", content))
        return error;
    DerReader fields(content);
    return fields.take_optional(kDerBoolean, flag, hasFlag) && (!hasFlag || der_boolean(flag, isCa)) &&
                   fields.take_optional(kDerInteger, pathLength, hasLength) && fields.at_end()
               ? 0
               : malformed("basicConstraints");
}

int write_is_ca(TextBuffer& out, const Object& object) {
    bool isCa;
    DerView pathLength;
    if (object.publicKeyInfo.empty())
        return 0;
    if (const int error = read_constraints(object, isCa, pathLength))
        return error;
    out.put(isCa ? '1' : '0');
    return 0;
}

int write_path_length(TextBuffer& out, const Object& object) {
    bool isCa;
    DerView content;
    int length;
    if (const int error = read_constraints(object, isCa, content))
        return error;
    if (content.empty())
        return 0;
    if (!der_small_integer(content, length))
        return malformed("basicConstraints");
    out.put_number(length);
    return 0;
}

// each_alt_name calls use for the names of subjectAltName.
template<class Use>
[[nodiscard]] int each_alt_name(const Object& object, Use use) {
    DerView names;
    if (const int error = find_sequence(object, kOidSubjectAltName, "subjectAltName", names))
        return error;
    GeneralNameReader reader(names);
    GeneralNameView name;
    while (reader.next(name))
        use(name);
    return reader.at_end() ? 0 : malformed("subjectAltName");
}

void put_typed_name(TextBuffer& out, const GeneralNameView& name) {
    out.put(general_name_keyword(name.type));
    out.put(':');
    put_general_name(out, name);
}

template<GeneralNameType type>
int write_alt_names(TextBuffer& out, const Object& object) {
    AnswerLines lines(out);
    return each_alt_name(object, [&](const GeneralNameView& name) {
        if (name.type == type)
            put_general_name(lines.next(), name);
    });
}

int write_all_names(TextBuffer& out, const Object& object) {
    AnswerLines lines(out);
    return each_alt_name(object, [&](const GeneralNameView& name) { put_typed_name(lines.next(), name); });
}

// write_mail_names adds addresses whose local part is not all ASCII (RFC 9598).
int write_mail_names(TextBuffer& out, const Object& object) {
    AnswerLines lines(out);
    return each_alt_name(object, [&](const GeneralNameView& name) {
        DerReader fields(name.value);
        DerView type, wrapped;
        DerElement text;
        if (name.type == GeneralNameType::rfc822Name)
            put_general_name(lines.next(), name);
        else if (name.type == GeneralNameType::otherName && fields.take(kDerOid, type) &&
                 type.text() == kOidSmtpUtf8Mailbox && fields.take(der_explicit(0), wrapped) &&
                 DerReader(wrapped).take_any(text))
            put_string(lines.next(), text);
    });
}

int write_policies(TextBuffer& out, const Object& object) {
    DerView content, policy, oid;
    if (const int error = find_sequence(object, kOidCertificatePolicies, "certificatePolicies", content))
        return error;
    AnswerLines lines(out);
    DerReader reader(content);
    while (!reader.at_end()) {
        if (!reader.take(kDerSequence, policy) || !DerReader(policy).take(kDerOid, oid))
            return malformed("certificatePolicies");
        put_oid_dotted(lines.next(), oid);
    }
    return 0;
}

int write_crl_points(TextBuffer& out, const Object& object) {
    DerView content;
    if (const int error = find_sequence(object, kOidCrlDistributionPoints, "cRLDistributionPoints", content))
        return error;
    AnswerLines lines(out);
    DistributionPointReader points(content);
    DistributionPoint point;
    while (points.next(point)) {
        GeneralNameReader names(point.name.fullName);
        GeneralNameView name;
        while (names.next(name))
            put_general_name(lines.next(), name);
    }
    return points.at_end() ? 0 : malformed("cRLDistributionPoints");
}

[[nodiscard]] int write_access(TextBuffer& out, const Object& object, std::string_view wanted) {
    DerView content, description, method;
    GeneralNameView location;
    if (const int error = find_sequence(object, kOidAuthorityInfoAccess, "authorityInfoAccess", content))
        return error;
    AnswerLines lines(out);
    DerReader reader(content);
    while (!reader.at_end()) {
        if (!reader.take(kDerSequence, description))
            return malformed("authorityInfoAccess");
        DerReader fields(description);
        if (!fields.take(kDerOid, method) || !take_general_name(fields, location))
            return malformed("authorityInfoAccess");
        if (method.text() == wanted)
            put_general_name(lines.next(), location);
    }
    return 0;
}
int write_ocsp(TextBuffer& out, const Object& object) {
    return write_access(out, object, kOidOcsp);
}
int write_ca_issuers(TextBuffer& out, const Object& object) {
    return write_access(out, object, kOidCaIssuers);
}

[[nodiscard]] bool write_subtrees(AnswerLines& lines, std::string_view mark, DerView subtrees) {
    DerReader reader(subtrees);
    DerView subtree;
    GeneralNameView name;
    while (!reader.at_end()) {
        if (!reader.take(kDerSequence, subtree))
            return false;
        DerReader fields(subtree);
        if (!take_general_name(fields, name))
            return false;
        TextBuffer& out = lines.next();
        out.put(mark);
        if (name.type == GeneralNameType::iPAddress) {
            out.put("iPAddress:");
            put_ip_range(out, name.value);
        } else {
            put_typed_name(out, name);
        }
    }
    return true;
}

int write_name_constraints(TextBuffer& out, const Object& object) {
    DerView content, permitted, excluded;
    bool found;
    if (const int error = find_sequence(object, kOidNameConstraints, "nameConstraints", content))
        return error;
    AnswerLines lines(out);
    DerReader fields(content);
    return fields.take_optional(der_explicit(0), permitted, found) &&
                   fields.take_optional(der_explicit(1), excluded, found) && fields.at_end() &&
                   write_subtrees(lines, "permitted:", permitted) &&
                   write_subtrees(lines, "excluded:", excluded)
               ? 0
               : malformed("nameConstraints");
}

int write_extensions(TextBuffer& out, const Object& object) {
    AnswerLines lines(out);
    ExtensionReader reader(object.extensions);
    ExtensionView extension;
    while (reader.next(extension))
        put_oid(lines.next(), extension.oid);
    return 0;
}

int write_tls_features(TextBuffer& out, const Object& object) {
    DerView content, number;
    if (const int error = find_sequence(object, kOidTlsFeature, "tlsFeature", content))
        return error;
    AnswerLines lines(out);
    DerReader reader(content);
    int feature;
    while (!reader.at_end()) {
        if (!reader.take(kDerInteger, number) || !der_small_integer(number, feature))
            return malformed("tlsFeature");
        if (feature == 5 || feature == 17)
            lines.next().put(feature == 5 ? "status_request" : "status_request_v2");
        else
            lines.next().put_number(feature);
    }
    return 0;
}

int write_sct_count(TextBuffer& out, const Object& object) {
    ExtensionView extension;
    DerView list, sct;
    if (object.kind != ObjectKind::certificate)
        return 0;
    int64_t count = 0;
    if (find_extension(object.extensions, kOidSctList, extension)) {
        if (!der_single(extension.value, kDerOctetString, list))
            return malformed("signedCertificateTimestampList");
        SctReader reader(list);
        while (reader.next(sct))
            count++;
        if (!reader.at_end())
            return malformed("signedCertificateTimestampList");
    }
    out.put_number(count);
    return 0;
}

int write_crl_number(TextBuffer& out, const Object& object) {
    ExtensionView extension;
    DerView number;
    if (object.kind != ObjectKind::crl || !find_extension(object.extensions, kOidCrlNumber, extension))
        return 0;
    if (!der_single(extension.value, kDerInteger, number) || !der_is_integer(number))
        return malformed("cRLNumber");
    put_integer(out, number);
    return 0;
}

constexpr QueryRow kRows[] = {
    {"subjectKeyIdentifier", write_subject_key_id},
    {"authorityKeyIdentifier", write_authority_key_id},
    {"keyUsage", write_key_usage},
    {"extKeyUsage", write_purposes},
    {"isCA", write_is_ca},
    {"pathLength", write_path_length},
    {"subjectAltName", write_all_names},
    {"dns", write_alt_names<GeneralNameType::dNSName>},
    {"ip", write_alt_names<GeneralNameType::iPAddress>},
    {"email", write_mail_names},
    {"uri", write_alt_names<GeneralNameType::uniformResourceIdentifier>},
    {"policies", write_policies},
    {"nameConstraints", write_name_constraints},
    {"crl", write_crl_points},
    {"ocsp", write_ocsp},
    {"caIssuers", write_ca_issuers},
    {"tlsFeature", write_tls_features},
    {"sctCount", write_sct_count},
    {"crlNumber", write_crl_number},
    {"extensions", write_extensions},
};

} // namespace

QueryRows extension_queries() {
    return {kRows, std::size(kRows)};
}

} // namespace zul
