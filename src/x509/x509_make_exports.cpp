#include "frame/call_frame.h"
#include "frame/text.h"
#include "x509/make/make.h"
#include "zulcore.h"

using namespace zul;

int X509_MakeCert(const char* szNewCertFile, const char* szIssuerCertFile, const char* szSubjectPubKeyFile,
                  const char* szIssuerPriKeyFile, int nCertNum, int nYearsValid, const char* szDistName,
                  const char* szExtensions, int nKeyUsageFlags, const char* szPassword, int nOptions) {
    CallFrame frame(1);
    if (is_missing(szNewCertFile) || is_missing(szIssuerCertFile) || is_missing(szSubjectPubKeyFile) ||
        is_missing(szIssuerPriKeyFile) || is_missing(szPassword))
        return frame.status(BAD_PARAM_ERROR);
    return frame.status(
        make_certificate({szNewCertFile, szIssuerCertFile, szSubjectPubKeyFile, szIssuerPriKeyFile, nCertNum,
                          nYearsValid, szDistName, szExtensions, nKeyUsageFlags, szPassword, nOptions}));
}

int X509_MakeCertSelf(const char* szNewCertFile, const char* szEPKFile, int nCertNum, int nYearsValid,
                      const char* szDistName, const char* szExtensions, int nKeyUsageFlags,
                      const char* szPassword, int nOptions) {
    CallFrame frame(1);
    if (is_missing(szNewCertFile) || is_missing(szEPKFile) || is_missing(szDistName) ||
        is_missing(szPassword))
        return frame.status(BAD_PARAM_ERROR);
    return frame.status(make_certificate({szNewCertFile, nullptr, nullptr, szEPKFile, nCertNum, nYearsValid,
                                          szDistName, szExtensions, nKeyUsageFlags, szPassword, nOptions}));
}

int X509_CertRequest(const char* szReqFile, const char* szEPKFile, const char* szDistName,
                     const char* /*szExtensions*/, const char* szPassword, int nOptions) {
    CallFrame frame(1);
    if (is_missing(szReqFile) || is_missing(szEPKFile) || is_missing(szDistName) || is_missing(szPassword))
        return frame.status(BAD_PARAM_ERROR);
    return frame.status(make_request(szReqFile, szEPKFile, szDistName, szPassword, nOptions));
}

int X509_MakeCRL(const char* szCrlFile, const char* szIssuerCertFile, const char* szIssuerKeyFile,
                 const char* szPassword, const char* szCertList, const char* szExtensions, int nOptions) {
    const CallFrame frame(1);
    if (is_missing(szCrlFile) || is_missing(szIssuerCertFile) || is_missing(szIssuerKeyFile) ||
        is_missing(szPassword))
        return BAD_PARAM_ERROR;
    // Returned but not recorded: programs tell this function's failures by its result alone.
    return make_crl(szCrlFile, szIssuerCertFile, szIssuerKeyFile, szPassword, szCertList, szExtensions,
                    nOptions);
}
