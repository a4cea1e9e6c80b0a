#include "cms/message_query.h"
#include "cms/signed_data_verify.h"
#include "frame/call_frame.h"
#include "zulcore.h"

using namespace zul;

namespace {

bool is_missing(const char* text) {
    return text == nullptr || *text == '\0';
}

int query_by_keyword(char* out, int room, const char* fileOrText, const char* keyword, int options) {
    if (is_missing(keyword))
        return -BAD_PARAM_ERROR;
    int index;
    const int found = find_message_query(keyword, &index);
    if (found < 0)
        return found;
    const auto query = static_cast<MessageQuery>(found);
    if (!is_signed_data_query(query))
        return -BAD_QUERY_ERROR;
    if ((options & ZUL_QUERY_GETTYPE) != 0)
        return message_query_type(query);
    return is_missing(fileOrText) ? -BAD_PARAM_ERROR : query_signed_data(out, room, fileOrText, query, index);
}

} // namespace

int CMS_VerifySigData(const char* szFileIn, const char* szCertFile, const char* szHexDigest, int) {
    CallFrame frame;
    if (is_missing(szFileIn))
        return frame.status(BAD_PARAM_ERROR);
    return frame.status(verify_signed_data(szFileIn, szCertFile, szHexDigest));
}

int CMS_GetSigDataDigest(char* szHexDigestOut, int nDigestLen, const char* szFileIn, const char* szCertFile,
                         int) {
    CallFrame frame;
    if (is_missing(szFileIn))
        return frame.length(-BAD_PARAM_ERROR);
    return frame.length(signed_data_digest(szHexDigestOut, nDigestLen, szFileIn, szCertFile));
}

int CMS_QuerySigData(char* szOutput, int nOutChars, const char* szFileIn, const char* szQuery, int nOptions) {
    CallFrame frame;
    return frame.length(query_by_keyword(szOutput, nOutChars, szFileIn, szQuery, nOptions));
}
