#include "frame/call_frame.h"
#include "frame/text.h"
#include "rsa/rsa_key_string.h"
#include "x509/crl/crl_lookup.h"
#include "x509/dump/text_dump.h"
#include "x509/fields/certificate.h"
#include "x509/fields/subject_public_key.h"
#include "x509/input/x509_input.h"
#include "x509/make/make.h"
#include "x509/query/certificate_digest.h"
#include "x509/query/certificate_query.h"
#include "x509/query/certificate_string.h"
#include "x509/verify/path.h"
#include "x509/verify/verify.h"
#include "zulcore.h"

using namespace zul;

namespace {

int query(CallFrame& frame, char* out, int nChars, const char* certFile, CertificateQuery what,
          int options = 0, const char* delimiter = nullptr) {
    if (is_missing(certFile))
        return frame.length(-BAD_PARAM_ERROR);
    int result = 0;
    const int error = query_certificate(out, nChars, certFile, what, options, delimiter, &result);
    return frame.length(error, result);
}

} // namespace

int X509_QueryCert(char* szOutput, int nChars, const char* szCertFile, const char* szQuery, int nOptions) {
    CallFrame frame;
    if (is_missing(szQuery))
        return frame.length(-BAD_PARAM_ERROR);
    CertificateQuery what;
    if (const int error = find_query(szQuery, what))
        return frame.length(-error);
    if ((nOptions & ZUL_QUERY_GETTYPE) != 0)
        return query_type(what);
    return query(frame, szOutput, nChars, szCertFile, what, nOptions);
}

int X509_KeyUsageFlags(const char* szCertFile) {
    CallFrame frame;
    return query(frame, nullptr, 0, szCertFile, CertificateQuery::keyUsageFlags);
}

int X509_CertThumb(const char* szCertFile, char* szHash, int nChars, int nOptions) {
    CallFrame frame;
    if (is_missing(szCertFile))
        return frame.length(-BAD_PARAM_ERROR);
    int length = 0;
    const int error = certificate_thumb(szHash, nChars, szCertFile, nOptions, &length);
    return frame.length(error, length);
}

int X509_CertIsValidNow(const char* szCertFile, int) {
    CallFrame frame;
    if (is_missing(szCertFile))
        return frame.status(BAD_PARAM_ERROR);
    const int state = query_validity(szCertFile);
    return state < 0 ? state : frame.status(state); // an expired certificate is an answer, no failure
}

int X509_CertIssuedOn(const char* szCertFile, char* szOutput, int nChars, int) {
    CallFrame frame;
    return query(frame, szOutput, nChars, szCertFile, CertificateQuery::notBefore);
}

int X509_CertExpiresOn(const char* szCertFile, char* szOutput, int nChars, int) {
    CallFrame frame;
    return query(frame, szOutput, nChars, szCertFile, CertificateQuery::notAfter);
}

int X509_CertSerialNumber(const char* szCertFile, char* szOutput, int nChars, int) {
    CallFrame frame;
    return query(frame, szOutput, nChars, szCertFile, CertificateQuery::serialNumber);
}

int X509_CertSubjectName(const char* szCertFile, char* szOutput, int nChars, const char* szDelim,
                         int nOptions) {
    CallFrame frame;
    return query(frame, szOutput, nChars, szCertFile, CertificateQuery::subjectName, nOptions, szDelim);
}

int X509_CertIssuerName(const char* szCertFile, char* szOutput, int nChars, const char* szDelim,
                        int nOptions) {
    CallFrame frame;
    return query(frame, szOutput, nChars, szCertFile, CertificateQuery::issuerName, nOptions, szDelim);
}

int X509_HashIssuerAndSN(const char* szCertFile, char* szOutput, int nChars, int nOptions) {
    CallFrame frame;
    if (is_missing(szCertFile) || nChars < 0)
        return frame.length(-BAD_PARAM_ERROR);
    int length = 0;
    const int error = issuer_and_serial_digest(szOutput, nChars, szCertFile, nOptions, &length);
    return frame.length(error, length);
}

int X509_ReadStringFromFile(char* szOutput, int nChars, const char* szCertFile, int) {
    CallFrame frame;
    if (is_missing(szCertFile))
        return frame.length(-BAD_PARAM_ERROR);
    int length = 0;
    const int error = certificate_string(szOutput, nChars, szCertFile, &length);
    return frame.length(error, length);
}

int X509_SaveFileFromString(const char* szNewCertFile, const char* szCertString, int nOptions) {
    CallFrame frame;
    if (is_missing(szNewCertFile) || is_missing(szCertString))
        return frame.length(-BAD_PARAM_ERROR);
    return frame.length(-save_certificate_string(szNewCertFile, szCertString, nOptions));
}

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
    // The code is not recorded: callers see failures of this function by its result alone.
    return make_crl(szCrlFile, szIssuerCertFile, szIssuerKeyFile, szPassword, szCertList, szExtensions,
                    nOptions);
}

int X509_VerifyCert(const char* szCertToVerify, const char* szIssuerCert) {
    CallFrame frame;
    if (is_missing(szCertToVerify) || is_missing(szIssuerCert))
        return frame.status(BAD_PARAM_ERROR);
    const int result = verify_input(szCertToVerify, szIssuerCert);
    if (result >= 0)
        return frame.status(result);
    frame.status(SIGNATURE_ERROR);
    return result;
}

int X509_CheckCertInCRL(const char* szCertFile, const char* szCrlFile, const char* szCRLIssuerCert,
                        const char* szDate, int) {
    CallFrame frame;
    if (is_missing(szCertFile) || is_missing(szCrlFile))
        return frame.length(-BAD_PARAM_ERROR);
    bool revoked = false;
    const int error = crl_lookup(szCertFile, szCrlFile, szCRLIssuerCert, szDate, revoked);
    return frame.length(error, revoked ? 1 : 0);
}

int X509_ValidatePath(const char* szCertList, const char* szTrustedCert, int nOptions) {
    CallFrame frame(1);
    if (is_missing(szCertList))
        return frame.length(-BAD_PARAM_ERROR);
    return frame.length(-validate_path(szCertList, szTrustedCert, nOptions));
}

int X509_TextDump(const char* szFileOut, const char* szCertFile, int) {
    CallFrame frame;
    if (is_missing(szFileOut) || is_missing(szCertFile))
        return frame.length(-BAD_PARAM_ERROR);
    return frame.length(-text_dump(szFileOut, szCertFile));
}

// This export stands here because src/rsa does not know certificates.
int RSA_GetPublicKeyFromCert(char* szOutput, int nOutChars, const char* szFileOrText) {
    CallFrame frame;
    if (is_missing(szFileOrText))
        return frame.length(-BAD_PARAM_ERROR);
    AsnList certificate;
    if (const int error = x509_read_certificate(szFileOrText, certificate))
        return frame.length(-error);
    RsaKey key;
    if (!rsa_public_key_of(certificate_fields(certificate.head()).subjectPublicKeyInfo, key))
        return frame.length(-err_fail(BAD_FORMAT_ERROR, "Could not read public key"));
    int length = 0;
    const int error = rsa_public_key_string(szOutput, nOutChars, key, &length);
    return frame.length(error, length);
}
