// Revocation lists of version 1 (RFC 5280, 5.1).
#include "asn1/asn_build.h"
#include "asn1/asn_file.h"
#include "frame/err.h"
#include "frame/text.h"
#include "x509/fields/certificate.h"
#include "x509/fields/signature_algorithm.h"
#include "x509/fields/x509_time.h"
#include "x509/input/x509_input.h"
#include "x509/make/extension_text.h"
#include "x509/make/key_argument.h"
#include "x509/make/make.h"
#include "x509/make/revoked_list.h"
#include "x509/make/sign.h"
#include "zulcore.h"

namespace zul {
namespace {

struct UpdateTimes {
    tm thisUpdate, nextUpdate;
    bool hasNext = false;
};

[[nodiscard]] int read_date(const std::optional<SecretBuffer>& text, const char* what, tm* time) {
    if (read_date_text(text->empty() ? "" : text->text(), "00:00:00", time))
        return 0;
    return err_fail(BAD_PARAM_ERROR, "%s time is invalid", what);
}

[[nodiscard]] int update_times(const char* extensions, UpdateTimes& times) {
    CrlText text;
    if (const int error = read_crl_text(extensions, text))
        return error;
    if (!text.thisUpdate)
        times.thisUpdate = utc_now();
    else if (const int error = read_date(text.thisUpdate, "thisUpdate", &times.thisUpdate))
        return error;
    times.hasNext = text.nextUpdate.has_value();
    return times.hasNext ? read_date(text.nextUpdate, "nextUpdate", &times.nextUpdate) : 0;
}

// read_issuer gives the subject of the issuer's certificate as it is encoded there.
[[nodiscard]] int read_issuer(const char* issuerCert, AsnList& name) {
    AsnList certificate;
    if (const int error = x509_read_certificate(issuerCert, certificate))
        return error;
    name = asn_CopyElement(certificate_fields(certificate.head()).subject);
    if (name)
        return 0;
    return err_fail(BAD_FORMAT_ERROR, "No Distinguished Name found in cert");
}

} // namespace

int make_crl(const char* crlFile, const char* issuerCert, const char* issuerKey, const char* password,
             const char* certList, const char* extensions, int options) {
    const char* const algorithm = rsa_signature_algorithm(options);
    if (algorithm == nullptr)
        return err_fail(BAD_FLAG_ERROR, "Invalid signature option");
    UpdateTimes times;
    if (const int error = update_times(extensions, times))
        return error;
    AsnList issuer;
    if (const int error = read_issuer(issuerCert, issuer))
        return error;
    RsaKey key;
    if (read_signing_key(issuerKey, password, key) != 0)
        return err_fail(READ_ERROR, "Unable to read private key file\n");
    AsnList entries;
    if (const int error = read_revoked_list(certList, entries))
        return error;
    const bool anyEntry = static_cast<bool>(entries);

    AsnList list = asn_NewSequence(asn_LinkList(rsa_signature_algorithm_identifier(algorithm),
                                                std::move(issuer), asn_NewTime(times.thisUpdate),
                                                times.hasNext ? asn_NewTime(times.nextUpdate) : AsnList(),
                                                anyEntry ? asn_NewSequence(std::move(entries)) : AsnList()));
    AsnList crl;
    if (const int error = x509_sign(std::move(list), algorithm, key, crl))
        return err_fail(error, "Unable to sign CRL");
    const bool pem = (options & ZUL_X509_FORMAT_PEM) != 0;
    const int error =
        asn_write_file(crlFile, crl.head(), pem ? "X509 CRL" : nullptr, kPemLineLen, {.input = issuerKey});
    if (error == CREATE_ERROR)
        return err_fail(error, "Cannot create file %s", shown_name(crlFile));
    return error;
}

} // namespace zul
