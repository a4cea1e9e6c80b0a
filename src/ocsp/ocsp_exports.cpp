#include "frame/call_frame.h"
#include "frame/text.h"
#include "hash/digest.h"
#include "ocsp/ocsp_request.h"
#include "ocsp/ocsp_response.h"
#include "x509/query/uncut_text.h"
#include "zulcore.h"

using namespace zul;

int OCSP_MakeRequest(char* szOutput, int nChars, const char* szIssuerCert, const char* szCertFileOrSerialNum,
                     const char* /*szExtensions*/, int nOptions) {
    CallFrame frame;
    // The code is positive here, unlike all others: programs rely on it.
    if (is_missing(szIssuerCert) || is_missing(szCertFileOrSerialNum))
        return frame.status(BAD_PARAM_ERROR);
    SecretBuffer text;
    int length = 0;
    int error = ocsp_request(szIssuerCert, szCertFileOrSerialNum, nOptions & kDigestAlgorithmMask, text);
    if (error == 0)
        error = uncut_text_result(szOutput, nChars, text, &length);
    return frame.length(error, length);
}

int OCSP_ReadResponse(char* szOutput, int nChars, const char* szResponseFile, const char* szIssuerCert,
                      const char* /*szExtensions*/, int /*nOptions*/) {
    CallFrame frame;
    if (is_missing(szResponseFile))
        return frame.length(-BAD_PARAM_ERROR);
    char report[kOcspReport];
    const int error = ocsp_report(report, szResponseFile, szIssuerCert);
    const int length = text_result(szOutput, nChars, report);
    if (error != 0)
        return frame.length(-error);
    return szOutput == nullptr || nChars <= 0 ? length : nChars;
}
