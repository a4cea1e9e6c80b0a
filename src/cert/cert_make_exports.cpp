#include "cert/make/cert_make.h"
#include "frame/call_frame.h"
#include "frame/text.h"
#include "zulcore.h"

using namespace zul;

int CERT_SelfSign(const char* szCertOut, const char* szPrivateKey, const char* szDescription, int nOptions) {
    CallFrame frame(1);
    if (is_missing(szCertOut) || is_missing(szPrivateKey) || is_missing(szDescription))
        return frame.status(err_missing_argument());
    return frame.status(cert_self_sign(szCertOut, szPrivateKey, szDescription, nOptions));
}

int CERT_Issue(const char* szCertOut, const char* szIssuerCert, const char* szIssuerKey,
               const char* szSubjectKeyOrRequest, const char* szDescription, int nOptions) {
    CallFrame frame(1);
    // A request may have all that a certificate needs.
    if (is_missing(szCertOut) || is_missing(szIssuerCert) || is_missing(szIssuerKey) ||
        is_missing(szSubjectKeyOrRequest))
        return frame.status(err_missing_argument());
    return frame.status(
        cert_issue(szCertOut, szIssuerCert, szIssuerKey, szSubjectKeyOrRequest, szDescription, nOptions));
}

int CERT_Request(const char* szRequestOut, const char* szPrivateKey, const char* szDescription,
                 int nOptions) {
    CallFrame frame(1);
    if (is_missing(szRequestOut) || is_missing(szPrivateKey) || is_missing(szDescription))
        return frame.status(err_missing_argument());
    return frame.status(cert_request(szRequestOut, szPrivateKey, szDescription, nOptions));
}
