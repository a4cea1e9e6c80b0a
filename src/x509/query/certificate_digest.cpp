#include "x509/query/certificate_digest.h"

#include "frame/err.h"
#include "frame/text.h"
#include "hash/digest_output.h"
#include "x509/fields/certificate.h"
#include "x509/fields/thumbprint.h"
#include "x509/input/x509_input.h"
#include "zulcore.h"

namespace zul {
namespace {

[[nodiscard]] int object_digest(char* out, int nChars, const AsnList& object, int options, int* length) {
    uint8_t digest[kMaxDigestSize];
    const int algorithm = options & kDigestAlgorithmMask;
    if (const int error = der_digest(digest, object.head(), algorithm))
        return error;
    *length = digest_hex_result(out, nChars, digest, static_cast<int>(digest_length(algorithm)));
    return 0;
}

} // namespace

int certificate_thumb(char* out, int nChars, const char* certFile, int options, int* length) {
    AsnList certificate;
    if (const int error = x509_read_certificate(certFile, certificate))
        return error;
    return object_digest(out, nChars, certificate, options, length);
}

int issuer_and_serial_digest(char* out, int nChars, const char* certFile, int options, int* length) {
    AsnList certificate;
    if (const int error = x509_read_certificate(certFile, certificate))
        return error;
    const AsnList pair = issuer_and_serial_number(certificate_fields(certificate.head()));
    if (!pair) {
        err_add_text("Could not find IssuerAndSerialNumber in certificate '%s'\n", shown_name(certFile));
        return err_fail(BAD_FORMAT_ERROR, "No Issuer and Serial Number found in cert");
    }
    return object_digest(out, nChars, pair, options, length);
}

} // namespace zul
