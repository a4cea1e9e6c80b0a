#include "frame/call_frame.h"
#include "frame/text.h"
#include "x509/crl/crl_lookup.h"
#include "x509/fields/certificate.h"
#include "x509/input/x509_input.h"
#include "x509/verify/verify.h"
#include "zulcore.h"

using namespace zul;

int X509_VerifyCert(const char* szCertToVerify, const char* szIssuerCert) {
    CallFrame frame;
    if (is_missing(szCertToVerify) || is_missing(szIssuerCert))
        return frame.status(BAD_PARAM_ERROR);
    AsnList issuer;
    if (const int error = x509_read_certificate(szIssuerCert, issuer))
        return frame.status(error);
    const int result = verify_input(certificate_fields(issuer.head()).subjectPublicKeyInfo, szCertToVerify);
    if (result >= 0)
        return frame.status(result);
    frame.status(SIGNATURE_ERROR);
    return result;
}

int X509_CheckCertInCRL(const char* szCertFile, const char* szCrlFile, const char* szCRLIssuerCert,
                        const char* szDate, int nOptions) {
    CallFrame frame;
    static_cast<void>(nOptions);
    if (is_missing(szCertFile) || is_missing(szCrlFile))
        return frame.length(-BAD_PARAM_ERROR);
    return frame.length(crl_lookup(szCertFile, szCrlFile, szCRLIssuerCert, szDate));
}
