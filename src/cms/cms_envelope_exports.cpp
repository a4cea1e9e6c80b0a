#include <cstring>

#include "cms/content/content_output.h"
#include "cms/enveloped/enveloped_data_make.h"
#include "cms/enveloped/enveloped_data_open.h"
#include "cms/message/message_query.h"
#include "frame/call_frame.h"
#include "frame/text.h"
#include "zulcore.h"

using namespace zul;

namespace {

Seed seed_of(const unsigned char* bytes, int size) {
    return {bytes, static_cast<size_t>(size)};
}

} // namespace

int CMS_MakeEnvData(const char* szFileOut, const char* szFileIn, const char* szCertList,
                    const unsigned char* lpSeed, int nSeedLen, int nOptions) {
    CallFrame frame;
    if (is_missing(szFileOut) || is_missing(szFileIn) || is_missing(szCertList) || nSeedLen < 0)
        return frame.length(-BAD_PARAM_ERROR);
    return frame.length(
        make_enveloped_file(szFileOut, szFileIn, szCertList, seed_of(lpSeed, nSeedLen), nOptions));
}

int CMS_MakeEnvDataFromString(const char* szFileOut, const char* szDataIn, const char* szCertList,
                              const unsigned char* lpSeed, int nSeedLen, int nOptions) {
    CallFrame frame;
    if (is_missing(szFileOut) || szDataIn == nullptr || is_missing(szCertList) || nSeedLen < 0)
        return frame.length(-BAD_PARAM_ERROR);
    return frame.length(make_enveloped_bytes(szFileOut, szDataIn, strlen(szDataIn), szCertList,
                                             seed_of(lpSeed, nSeedLen), nOptions));
}

int CMS_ReadEnvData(const char* szFileOut, const char* szFileIn, const char* szX509File,
                    const char* szPrivateKey, int) {
    CallFrame frame;
    if (is_missing(szFileOut) || is_missing(szFileIn) || is_missing(szPrivateKey))
        return frame.length(-BAD_PARAM_ERROR);
    SecretBuffer content;
    if (const int error = open_enveloped_data(szFileIn, szX509File, szPrivateKey, content))
        return frame.length(-error);
    return frame.length(-bytes_to_file(content, szFileOut));
}

int CMS_ReadEnvDataToString(char* szDataOut, int nDataOutLen, const char* szFileIn, const char* szX509File,
                            const char* szPrivateKey, int) {
    CallFrame frame;
    if (is_missing(szFileIn) || is_missing(szPrivateKey))
        return frame.length(-BAD_PARAM_ERROR);
    SecretBuffer content;
    if (const int error = open_enveloped_data(szFileIn, szX509File, szPrivateKey, content))
        return frame.length(-error);
    return frame.length(bytes_to_room(content.data(), content.size(), szDataOut, nDataOutLen));
}

int CMS_QueryEnvData(char* szOutput, int nOutChars, const char* szFileIn, const char* szQuery, int nOptions) {
    CallFrame frame;
    return frame.length(query_by_keyword({is_enveloped_data_query, query_enveloped_data}, szOutput, nOutChars,
                                         szFileIn, szQuery, nOptions));
}
