#include "frame/call_frame.h"
#include "frame/text.h"
#include "x509/fields/certificate.h"
#include "x509/input/x509_input.h"
#include "x509/query/certificate_digest.h"
#include "x509/query/certificate_query.h"
#include "x509/query/certificate_string.h"
#include "zulcore.h"

using namespace zul;

namespace {

int query(char* out, int nChars, const char* certFile, CertificateQuery what, int options = 0,
          const char* delimiter = nullptr) {
    return is_missing(certFile) ? -BAD_PARAM_ERROR
                                : query_certificate(out, nChars, certFile, what, options, delimiter);
}

int query_by_words(char* out, int nChars, const char* certFile, const char* words, int options) {
    if (is_missing(words))
        return -BAD_PARAM_ERROR;
    const int found = find_query(words);
    if (found < 0)
        return found;
    const auto what = static_cast<CertificateQuery>(found);
    if ((options & ZUL_QUERY_GETTYPE) != 0)
        return query_type(what);
    return query(out, nChars, certFile, what, options);
}

} // namespace

int X509_QueryCert(char* szOutput, int nChars, const char* szCertFile, const char* szQuery, int nOptions) {
    CallFrame frame;
    return frame.length(query_by_words(szOutput, nChars, szCertFile, szQuery, nOptions));
}

int X509_KeyUsageFlags(const char* szCertFile) {
    CallFrame frame;
    return frame.length(query(nullptr, 0, szCertFile, CertificateQuery::keyUsageFlags));
}

int X509_CertThumb(const char* szCertFile, char* szHash, int nChars, int nOptions) {
    CallFrame frame;
    if (is_missing(szCertFile))
        return frame.length(-BAD_PARAM_ERROR);
    return frame.length(certificate_thumb(szHash, nChars, szCertFile, nOptions));
}

int X509_CertIsValidNow(const char* szCertFile, int) {
    CallFrame frame;
    if (is_missing(szCertFile))
        return frame.status(BAD_PARAM_ERROR);
    AsnList certificate;
    if (const int error = x509_read_certificate(szCertFile, certificate))
        return frame.status(error);
    const int state = validity_state(certificate_fields(certificate.head()));
    return state < 0 ? state : frame.status(state); // that it has expired is an answer, no failure
}

int X509_CertIssuedOn(const char* szCertFile, char* szOutput, int nChars, int) {
    CallFrame frame;
    return frame.length(query(szOutput, nChars, szCertFile, CertificateQuery::notBefore));
}

int X509_CertExpiresOn(const char* szCertFile, char* szOutput, int nChars, int) {
    CallFrame frame;
    return frame.length(query(szOutput, nChars, szCertFile, CertificateQuery::notAfter));
}

int X509_CertSerialNumber(const char* szCertFile, char* szOutput, int nChars, int) {
    CallFrame frame;
    return frame.length(query(szOutput, nChars, szCertFile, CertificateQuery::serialNumber));
}

int X509_CertSubjectName(const char* szCertFile, char* szOutput, int nChars, const char* szDelim,
                         int nOptions) {
    CallFrame frame;
    return frame.length(
        query(szOutput, nChars, szCertFile, CertificateQuery::subjectName, nOptions, szDelim));
}

int X509_CertIssuerName(const char* szCertFile, char* szOutput, int nChars, const char* szDelim,
                        int nOptions) {
    CallFrame frame;
    return frame.length(query(szOutput, nChars, szCertFile, CertificateQuery::issuerName, nOptions, szDelim));
}

int X509_HashIssuerAndSN(const char* szCertFile, char* szOutput, int nChars, int nOptions) {
    CallFrame frame;
    if (is_missing(szCertFile) || nChars < 0)
        return frame.length(-BAD_PARAM_ERROR);
    return frame.length(issuer_and_serial_digest(szOutput, nChars, szCertFile, nOptions));
}

int X509_ReadStringFromFile(char* szOutput, int nChars, const char* szCertFile, int) {
    CallFrame frame;
    if (is_missing(szCertFile))
        return frame.length(-BAD_PARAM_ERROR);
    return frame.length(certificate_string(szOutput, nChars, szCertFile));
}

int X509_SaveFileFromString(const char* szNewCertFile, const char* szCertString, int nOptions) {
    CallFrame frame;
    if (is_missing(szNewCertFile) || is_missing(szCertString))
        return frame.length(-BAD_PARAM_ERROR);
    return frame.length(-save_certificate_string(szNewCertFile, szCertString, nOptions));
}
