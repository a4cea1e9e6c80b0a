#include "frame/call_frame.h"
#include "frame/text.h"
#include "rsa/rsa_key_string.h"
#include "x509/fields/certificate.h"
#include "x509/fields/subject_public_key.h"
#include "x509/input/x509_input.h"
#include "zulcore.h"

using namespace zul;

namespace {

int public_key_string(char* out, int outChars, const char* certFile) {
    AsnList certificate;
    if (const int error = x509_read_certificate(certFile, certificate); error != 0)
        return -error;
    RsaKey key;
    if (!rsa_public_key_of(certificate_fields(certificate.head()).subjectPublicKeyInfo, key))
        return -err_fail(BAD_FORMAT_ERROR, "Could not read public key");
    int length = 0;
    const int code = rsa_public_key_string(out, outChars, key, &length);
    return code != 0 ? -code : length;
}

} // namespace

// This export stands here because src/rsa does not know certificates.
int RSA_GetPublicKeyFromCert(char* szOutput, int nOutChars, const char* szFileOrText) {
    CallFrame frame;
    if (is_missing(szFileOrText))
        return frame.length(-BAD_PARAM_ERROR);
    return frame.length(public_key_string(szOutput, nOutChars, szFileOrText));
}
