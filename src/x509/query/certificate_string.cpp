#include "x509/query/certificate_string.h"

#include <cstring>
#include <utility>

#include "asn1/asn_element.h"
#include "asn1/asn_encode.h"
#include "asn1/asn_file.h"
#include "asn1/asn_input.h"
#include "encode/base64.h"
#include "frame/err.h"
#include "frame/text.h"
#include "x509/fields/certificate.h"
#include "x509/input/x509_input.h"
#include "x509/make/sign.h"
#include "x509/query/uncut_text.h"
#include "zulcore.h"

namespace zul {
namespace {

// certificate_from_string takes a text of any length; a short certificate argument would be the name of a
// file. It is empty if the text holds no certificate.
AsnList certificate_from_string(const char* text) {
    const size_t size = strlen(text);
    AsnList object;
    if (b64_decoded_length(text, size) > kMaxX509Object || // no reader takes more
        asn_read_content(reinterpret_cast<const uint8_t*>(text), size, object) != 0 ||
        !x509_is_certificate(object.head()))
        return AsnList();
    return asn_ToDer(std::move(object));
}

} // namespace

int certificate_string(char* out, int nChars, const char* certFile, int* length) {
    AsnList certificate;
    if (const int error = x509_read_certificate(certFile, certificate))
        return error;
    const AsnList der = asn_ToDer(std::move(certificate));
    const SecretBuffer text = asn_EncodeBase64(der.head());
    if (text.empty())
        return err_fail(INVALID_DATA_ERROR, "Invalid ASN.1 data");
    return uncut_text_result(out, nChars, text, length);
}

int save_certificate_string(const char* path, const char* text, int options) {
    const AsnList certificate = certificate_from_string(text);
    if (!certificate) {
        err_set_text("Not valid X.509 data");
        return INVALID_DATA_ERROR;
    }
    const bool pem = (options & ZUL_X509_FORMAT_PEM) != 0;
    const int error = asn_write_file(path, certificate.head(), pem ? "CERTIFICATE" : nullptr, kPemLineLen);
    if (error == CREATE_ERROR)
        return err_fail(error, "Cannot create file '%s'", shown_name(path));
    return error;
}

} // namespace zul
