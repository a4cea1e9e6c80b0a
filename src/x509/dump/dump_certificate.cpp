#include "encode/hex.h"
#include "frame/err.h"
#include "x509/dump/dump_layouts.h"
#include "x509/fields/certificate_extensions.h"
#include "x509/fields/thumbprint.h"
#include "zulcore.h"

namespace zul {
namespace {

[[nodiscard]] int put_serial_number(DumpOutput& out, const asn_Node* serialNumber) {
    SecretBuffer bytes;
    if (!asn_GetPrimitiveData(serialNumber, bytes))
        return err_fail(BAD_FORMAT_ERROR, "No Serial Number found in cert");
    out.put("Serial Number:\n  ");
    out.put_hex(bytes.data(), bytes.size());
    out.put("\n");
    return 0;
}

[[nodiscard]] int put_time(DumpOutput& out, const char* label, const asn_Node* time) {
    char buffer[kAsnTimeText];
    const char* text = asn_time_text(time, buffer);
    if (*text == '\0')
        return err_fail(BAD_FORMAT_ERROR, "Missing time field in cert");
    out.put(label, text, "\n");
    return 0;
}

[[nodiscard]] int put_validity(DumpOutput& out, const CertificateFields& certificate) {
    out.put("Validity:\n");
    if (const int error = put_time(out, "  NotBefore: ", certificate.notBefore))
        return error;
    return put_time(out, "  NotAfter:  ", certificate.notAfter);
}

void put_item(DumpOutput& out, const char* label, const SecretBuffer& text) {
    if (!text.empty())
        out.put(label, text, "\n");
}

void put_text(DumpOutput& out, const char* label, const CertificateFields& certificate,
              int (*read)(const CertificateFields& certificate, SecretBuffer& text)) {
    SecretBuffer text;
    if (read(certificate, text) == 0)
        put_item(out, label, text);
}

void put_identifier(DumpOutput& out, const char* label, const SecretBuffer& octets) {
    SecretBuffer hex(2 * octets.size() + 1);
    hex_encode_lower(hex.text(), hex.size(), octets.data(), octets.size());
    hex.shrink(2 * octets.size());
    put_item(out, label, hex);
}

// put_extensions leaves out what cannot be shown.
void put_extensions(DumpOutput& out, const CertificateFields& certificate) {
    out.put("X509v3 Extensions:\n  Subject Type: ", is_ca(certificate) ? "CA" : "End Entity", "\n");
    put_text(out, "  Subject Alternative Name:\n    RFC822 Name: ", certificate, rfc822_name);
    put_identifier(out, "  Subject Key Identifier:\n    ", subject_key_identifier(certificate));
    put_identifier(out, "  Authority Key Identifier:\n    ", authority_key_identifier(certificate));
    char keyUsage[kKeyUsageText + 1];
    if (key_usage_text(key_usage_flags(certificate), keyUsage) != 0)
        out.put("  Key Usage:\n    ", keyUsage, "\n");
    put_text(out, "  Extended Key Usage:\n    ", certificate, extended_key_usage_text);
    put_text(out, "  CRL Distribution Points:\n    URI: ", certificate, crl_distribution_point_uri);
    put_text(out, "  Authority Information Access:\n    URI: ", certificate, authority_info_access_uri);
    err_clear(); // the texts of what was left out
}

[[nodiscard]] int put_thumbprint(DumpOutput& out, const char* label, const asn_Node* certificate,
                                 DigestAlgorithm algorithm) {
    char hex[kThumbprintText + 1];
    if (!thumbprint_text(certificate, algorithm, hex))
        return INVALID_DATA_ERROR;
    out.put(label, " Thumbprint:\n  ", hex, "\n");
    return 0;
}

void put_version(DumpOutput& out, int64_t version) {
    out.put("Version: ");
    out.put_number(static_cast<long>(version));
    out.put("\n");
}

} // namespace

int dump_certificate(DumpOutput& out, const asn_Node* certificate) {
    const CertificateFields fields = certificate_fields(certificate);
    out.put("X.509 CERTIFICATE\n");
    int version = 0;
    if (const int error = certificate_version(fields, &version))
        return error;
    put_version(out, version);
    if (const int error = put_serial_number(out, fields.serialNumber))
        return error;
    if (const int error = dump_name(out, "Issuer", fields.issuer, "Cannot find Issuer Name"))
        return error;
    if (const int error = dump_name(out, "Subject", fields.subject, "Cannot find Subject Name"))
        return error;
    if (const int error = put_validity(out, fields))
        return error;
    if (const int error = dump_public_key(out, fields.subjectPublicKeyInfo))
        return error;
    if (fields.extensions != nullptr)
        put_extensions(out, fields);
    if (const int error =
            dump_signature(out, fields.signatureAlgorithm, fields.signatureValue, "Cannot find Signature"))
        return error;
    if (const int error = put_thumbprint(out, "SHA-1", certificate, kDigestSha1))
        return error;
    return put_thumbprint(out, "MD5", certificate, kDigestMd5);
}

int dump_request(DumpOutput& out, const asn_Node* request) {
    const RequestFields fields = request_fields(request);
    out.put("NEW CERTIFICATE REQUEST\n");
    put_version(out, asn_GetInt(fields.version));
    if (const int error = dump_name(out, "Subject", fields.subject, "Cannot find Subject Name"))
        return error;
    if (const int error = dump_public_key(out, fields.subjectPublicKeyInfo))
        return error;
    return dump_signature(out, fields.signatureAlgorithm, fields.signatureValue, "Cannot find Signature");
}

} // namespace zul
