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

// begins_with_positive_number tells whether atoi would give a number above 0, without its overflow.
bool begins_with_positive_number(std::string_view text) {
    text = without_leading_space(text);
    if (text.starts_with('+'))
        text.remove_prefix(1);
    while (text.starts_with('0'))
        text.remove_prefix(1);
    return !text.empty() && text.front() >= '1' && text.front() <= '9';
}

// Evaluation answers one query. Its functions set *result and give 0 or a positive code.
struct Evaluation {
    char* out;
    int nChars;
    const char* certFile;
    const CertificateFields& fields;
    int* result; // the number, or the length of the text

    [[nodiscard]] int number(int value) const {
        *result = value;
        return 0;
    }

    [[nodiscard]] int text(const char* value) const { return number(text_result(out, nChars, value)); }

    [[nodiscard]] int uncut_text(const SecretBuffer& value) const {
        return uncut_text_result(out, nChars, value, result);
    }

    [[nodiscard]] int hex(const SecretBuffer& bytes) const {
        SecretBuffer digits(2 * bytes.size() + 1);
        digits.shrink(hex_encode_lower(digits.text(), digits.size(), bytes.data(), bytes.size()));
        return uncut_text(digits);
    }

    [[nodiscard]] int serial_number() const {
        SecretBuffer content;
        if (!asn_GetPrimitiveData(fields.serialNumber, content) || content.empty())
            return missing("No Serial Number found in cert");
        return hex(content);
    }

    [[nodiscard]] int signature_value() const {
        SecretBuffer content;
        if (!asn_GetBitString(fields.signatureValue, content))
            return missing("Cannot find signature value");
        return hex(content);
    }

    [[nodiscard]] int time(const asn_Node* node) const {
        char value[kAsnTimeText];
        if (fields.validity == nullptr)
            return err_fail(INVALID_DATA_ERROR, "No Validity in cert '%s'", shown_name(certFile));
        if (*asn_time_text(node, value) == '\0')
            return err_fail(INVALID_DATA_ERROR, "Cannot find time in cert '%s'", shown_name(certFile));
        return text(value);
    }

    [[nodiscard]] int name(const asn_Node* node, const char* delimiter, int options) const {
        if (node == nullptr)
            return missing("No Distinguished Name found in cert");
        return name_print(node, out, nChars, delimiter, options, result);
    }

    [[nodiscard]] int key_algorithm() const {
        char value[kAlgorithmName];
        if (*public_key_algorithm(fields.subjectPublicKeyInfo, value) == '\0')
            return missing("No public key algorithm found in cert");
        return text(value);
    }

    [[nodiscard]] int signature_algorithm() const {
        char value[kAlgorithmName];
        if (*algorithm_name(fields.signatureAlgorithm, value) == '\0')
            return missing("No signature algorithm found in cert");
        return text(value);
    }

    [[nodiscard]] int signature_algorithm_id() const {
        char value[kAlgorithmName];
        const std::string_view algorithm = algorithm_name(fields.signatureAlgorithm, value);
        if (algorithm == "sha1WithRSAEncryption" || algorithm == "md5WithRSAEncryption" ||
            algorithm == "md2WithRSAEncryption")
            return number(1);
        return number(algorithm == "dsaWithSha1" ? 2 : 0);
    }

    [[nodiscard]] int key_usage() const {
        SecretBuffer value(kKeyUsageText + 1);
        value.shrink(key_usage_text(key_usage_flags(fields), value.text()));
        return uncut_text(value);
    }

    [[nodiscard]] int entry(int (*read)(const CertificateFields& certificate, SecretBuffer& text)) const {
        SecretBuffer value;
        const int error = read(fields, value);
        return error != 0 ? error : uncut_text(value);
    }

  private:
    [[nodiscard]] static int missing(const char* text) { return err_fail(BAD_FORMAT_ERROR, "%s", text); }
};

} // namespace

int find_query(const char* text, CertificateQuery& query) {
    constexpr size_t kMaxWords = 32;
    std::string_view words = slice(without_leading_space(text), 0, kMaxWords);
    if (const size_t slash = words.find('/'); slash != std::string_view::npos) {
        if (!begins_with_positive_number(slice(words, slash + 1)))
            return BAD_QUERY_ERROR;
        words = slice(words, 0, slash);
    }
    words = slice(words, 0, words.find(' '));
    for (size_t i = 0; i < std::size(kQueries); i++) {
        if (same_word(slice(words, 0, kQueries[i].name.size()), kQueries[i].name)) {
            query = static_cast<CertificateQuery>(i);
            return 0;
        }
    }
    return BAD_QUERY_ERROR;
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
                      const char* delimiter, int* result) {
    AsnList certificate;
    if (const int error = x509_read_certificate(certFile, certificate))
        return error;
    const CertificateFields fields = certificate_fields(certificate.head());
    const Evaluation of{out, nChars, certFile, fields, result};
    switch (query) {
    case CertificateQuery::version:
        return certificate_version(fields, result);
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
        return of.number(static_cast<int>(key_usage_flags(fields)));
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
    case CertificateQuery::subjectKeyIdentifier:
        return of.hex(subject_key_identifier(fields));
    case CertificateQuery::authorityKeyIdentifier:
        return of.hex(authority_key_identifier(fields));
    case CertificateQuery::rfc822Name:
        return of.entry(rfc822_name);
    case CertificateQuery::isCA:
        return of.number(is_ca(fields) ? 1 : 0);
    case CertificateQuery::extKeyUsageString:
        return of.entry(extended_key_usage_text);
    case CertificateQuery::cRLDistributionPointsURI:
        return of.entry(crl_distribution_point_uri);
    case CertificateQuery::authorityInfoAccessURI:
        return of.entry(authority_info_access_uri);
    }
    return BAD_QUERY_ERROR;
}

} // namespace zul
