#include "cert/make/crl_issue.h"
#include "frame/call_frame.h"
#include "frame/text.h"
#include "zulcore.h"

using namespace zul;

int CERT_IssueCRL(const char* szCrlOut, const char* szIssuerCert, const char* szIssuerKey,
                  const char* szEarlierCrl, const char* szRevoked, const char* szDescription, int nOptions) {
    CallFrame frame(1);
    if (is_missing(szCrlOut) || is_missing(szIssuerCert) || is_missing(szIssuerKey))
        return frame.status(err_missing_argument());
    return frame.status(
        crl_issue(szCrlOut, szIssuerCert, szIssuerKey, szEarlierCrl, szRevoked, szDescription, nOptions));
}
