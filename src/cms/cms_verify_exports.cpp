#include "cms/message/message_query.h"
#include "cms/signed/signed_data_verify.h"
#include "frame/call_frame.h"
#include "frame/text.h"
#include "zulcore.h"

using namespace zul;

int CMS_VerifySigData(const char* szFileIn, const char* szCertFile, const char* szHexDigest, int) {
    CallFrame frame(1);
    if (is_missing(szFileIn))
        return frame.status(BAD_PARAM_ERROR);
    return frame.status(verify_signed_data(szFileIn, szCertFile, szHexDigest));
}

int CMS_GetSigDataDigest(char* szHexDigestOut, int nDigestLen, const char* szFileIn, const char* szCertFile,
                         int) {
    CallFrame frame(1);
    if (is_missing(szFileIn))
        return frame.length(-BAD_PARAM_ERROR);
    return frame.length(signed_data_digest(szHexDigestOut, nDigestLen, szFileIn, szCertFile));
}

int CMS_QuerySigData(char* szOutput, int nOutChars, const char* szFileIn, const char* szQuery, int nOptions) {
    CallFrame frame(1);
    return frame.length(query_by_keyword({is_signed_data_query, query_signed_data}, szOutput, nOutChars,
                                         szFileIn, szQuery, nOptions));
}
