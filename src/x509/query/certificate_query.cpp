#include "x509/query/certificate_query.h"

#include <cstdint>
#include <iterator>
#include <string_view>

#include "asn1/asn_value.h"
#include "encode/hex.h"
#include "frame/err.h"
#include "frame/memory.h"
#include "frame/slice.h"
#include "frame/text.h"
#include "x509/fields/certificate.h"
#include "x509/fields/certificate_extensions.h"
#include "x509/fields/subject_public_key.h"
#include "x509/input/x509_input.h"
#include "x509/names/distinguished_name.h"
#include "x509/names/pair_reader.h"
#include "x509/query/uncut_text.h"
#include "zulcore.h"

namespace zul {
namespace {

struct QueryWord {
    std::string_view name;
    int type;
};

constexpr QueryWord kQueries[] = {
    {"version", kQueryNumber},
    {"serialNumber", kQueryText},
    {"signatureAlgorithm", kQueryText},
    {"signatureValue", kQueryText},
    {"sigAlgID", kQueryNumber},
    {"keyUsageString", kQueryText},
    {"keyUsageFlags", kQueryNumber},
    {"notBefore", kQueryText},
    {"notAfter", kQueryText},
    {"issuerName", kQueryText},
    {"subjectName", kQueryText},
    {"subjectPublicKeyAlgorithm", kQueryText},
    {"subjectKeyIdentifier", kQueryText},
    {"authorityKeyIdentifier", kQueryText},
    {"rfc822Name", kQueryText},
    {"isCA", kQueryNumber},
    {"extKeyUsageString", kQueryText},
    {"cRLDistributionPointsURI", kQueryText},
    {"authorityInfoAccessURI", kQueryText},
};
static_assert(std::size(kQueries) == static_cast<size_t>(CertificateQuery::authorityInfoAccessURI) + 1);

bool is_space(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

std::string_view without_leading_space(std::string_view text) {
    while (!text.empty() && is_space(text.front()))
        text.remove_prefix(1);
    return text;
}

// begins_with_positive_number reads as atoi does, but for its overflow.
bool begins_with_positive_number(std::string_view text) {
    text = without_leading_space(text);
    if (text.starts_with('+'))
        text.remove_prefix(1);
    while (text.starts_with('0'))
        text.remove_prefix(1);
    return !text.empty() && text.front() >= '1' && text.front() <= '9';
}

// What the evaluation of one query needs. Its functions give an export's result.
struct Evaluation {
    char* out;
    int nChars;
    const char* certFile;
    const CertificateFields& fields;

    int hex(const uint8_t* bytes, size_t size) const {
        SecretBuffer text(2 * size + 1);
        text.shrink(hex_encode_lower(text.text(), text.size(), bytes, size));
        return uncut_text_result(out, nChars, text);
    }

    int serial_number() const {
        SecretBuffer content;
        if (!asn_GetPrimitiveData(fields.serialNumber, content) || content.empty())
            return missing("No Serial Number found in cert");
        return hex(content.data(), content.size());
    }

    int signature_value() const {
        SecretBuffer content;
        if (!asn_GetBitString(fields.signatureValue, content))
            return missing("Cannot find signature value");
        return hex(content.data(), content.size());
    }

    int time(const asn_Node* node) const {
        char text[kAsnTimeText];
        if (fields.validity == nullptr)
            err_add_text("No Validity in cert '%s'", shown_name(certFile));
        else if (*asn_time_text(node, text) == '\0')
            err_add_text("Cannot find time in cert '%s'", shown_name(certFile));
        else
            return text_result(out, nChars, text);
        return -INVALID_DATA_ERROR;
    }

    int name(const asn_Node* node, const char* delimiter, int options) const {
        if (node == nullptr)
            return missing("No Distinguished Name found in cert");
        return name_print(node, out, nChars, delimiter, options);
    }

    int key_algorithm() const {
        char text[kAlgorithmName];
        if (*public_key_algorithm(fields.subjectPublicKeyInfo, text) == '\0')
            return missing("No public key algorithm found in cert");
        return text_result(out, nChars, text);
    }

    int signature_algorithm() const {
        char text[kAlgorithmName];
        if (*algorithm_name(fields.signatureAlgorithm, text) == '\0')
            return missing("No signature algorithm found in cert");
        return text_result(out, nChars, text);
    }

    int signature_algorithm_id() const {
        char text[kAlgorithmName];
        const std::string_view algorithm = algorithm_name(fields.signatureAlgorithm, text);
        if (algorithm == "sha1WithRSAEncryption" || algorithm == "md5WithRSAEncryption" ||
            algorithm == "md2WithRSAEncryption")
            return 1;
        return algorithm == "dsaWithSha1" ? 2 : 0;
    }

    int key_usage() const {
        SecretBuffer text(kKeyUsageText + 1);
        text.shrink(key_usage_text(key_usage_flags(fields), text.text()));
        return uncut_text_result(out, nChars, text);
    }

    int entry(int (*read)(const CertificateFields& certificate, SecretBuffer& text)) const {
        SecretBuffer text;
        const int error = read(fields, text);
        return error != 0 ? -error : uncut_text_result(out, nChars, text);
    }

  private:
    static int missing(const char* text) { return -err_fail(BAD_FORMAT_ERROR, "%s", text); }
};

} // namespace

int find_query(const char* query) {
    constexpr size_t kMaxWords = 32;
    std::string_view words = slice(without_leading_space(query), 0, kMaxWords);
    if (const size_t slash = words.find('/'); slash != std::string_view::npos) {
        if (!begins_with_positive_number(slice(words, slash + 1)))
            return -BAD_QUERY_ERROR;
        words = slice(words, 0, slash);
    }
    words = slice(words, 0, words.find(' '));
    for (size_t i = 0; i < std::size(kQueries); i++) {
        if (same_word(slice(words, 0, kQueries[i].name.size()), kQueries[i].name))
            return static_cast<int>(i);
    }
    return -BAD_QUERY_ERROR;
}

int query_type(CertificateQuery query) {
    return kQueries[static_cast<size_t>(query)].type;
}

int query_validity(const char* certFile) {
    AsnList certificate;
    const int error = x509_read_certificate(certFile, certificate);
    return error != 0 ? error : validity_state(certificate_fields(certificate.head()));
}

int query_certificate(char* out, int nChars, const char* certFile, CertificateQuery query, int options,
                      const char* delimiter) {
    AsnList certificate;
    if (const int error = x509_read_certificate(certFile, certificate))
        return -error;
    const CertificateFields fields = certificate_fields(certificate.head());
    const Evaluation of{out, nChars, certFile, fields};
    switch (query) {
    case CertificateQuery::version:
        return certificate_version(fields);
    case CertificateQuery::serialNumber:
        return of.serial_number();
    case CertificateQuery::signatureAlgorithm:
        return of.signature_algorithm();
    case CertificateQuery::signatureValue:
        return of.signature_value();
    case CertificateQuery::sigAlgID:
        return of.signature_algorithm_id();
    case CertificateQuery::keyUsageString:
        return of.key_usage();
    case CertificateQuery::keyUsageFlags:
        return static_cast<int>(key_usage_flags(fields));
    case CertificateQuery::notBefore:
        return of.time(fields.notBefore);
    case CertificateQuery::notAfter:
        return of.time(fields.notAfter);
    case CertificateQuery::issuerName:
        return of.name(fields.issuer, delimiter, options);
    case CertificateQuery::subjectName:
        return of.name(fields.subject, delimiter, options);
    case CertificateQuery::subjectPublicKeyAlgorithm:
        return of.key_algorithm();
    case CertificateQuery::subjectKeyIdentifier: {
        const SecretBuffer octets = subject_key_identifier(fields);
        return of.hex(octets.data(), octets.size());
    }
    case CertificateQuery::authorityKeyIdentifier: {
        const SecretBuffer octets = authority_key_identifier(fields);
        return of.hex(octets.data(), octets.size());
    }
    case CertificateQuery::rfc822Name:
        return of.entry(rfc822_name);
    case CertificateQuery::isCA:
        return is_ca(fields) ? 1 : 0;
    case CertificateQuery::extKeyUsageString:
        return of.entry(extended_key_usage_text);
    case CertificateQuery::cRLDistributionPointsURI:
        return of.entry(crl_distribution_point_uri);
    case CertificateQuery::authorityInfoAccessURI:
        return of.entry(authority_info_access_uri);
    }
    return -BAD_QUERY_ERROR;
}

} // namespace zul
