#include <cstring>

#include "frame/call_frame.h"
#include "frame/err.h"
#include "frame/text.h"
#include "pfx/p12_list.h"
#include "pfx/p12_pack.h"
#include "pfx/p12_unpack.h"
#include "x509/query/uncut_text.h"
#include "zulcore.h"

using namespace zul;

namespace {

const char* or_empty(const char* text) {
    return text == nullptr ? "" : text;
}

} // namespace

int P12_Pack(const char* szFileOut, const char* szCerts, const char* szPrivateKey, const char* szPassword,
             const char* szName, int nOptions) {
    CallFrame frame(1);
    if (is_missing(szFileOut) || szPassword == nullptr)
        return frame.status(err_missing_argument());
    return frame.status(p12_pack(
        {szFileOut, or_empty(szCerts), or_empty(szPrivateKey), szPassword, or_empty(szName), nOptions}));
}

int P12_Unpack(const char* szCertsOut, char* szKeyOutput, int nKeyChars, const char* szP12,
               const char* szPassword, int nOptions) {
    CallFrame frame(1);
    if (is_missing(szP12) || nKeyChars < 0 || (is_missing(szCertsOut) && szKeyOutput == nullptr))
        return frame.status(err_missing_argument());
    SecretBuffer keyString;
    const int error = p12_unpack(keyString, {szCertsOut, szKeyOutput != nullptr,
                                             static_cast<size_t>(nKeyChars), szP12, szPassword, nOptions});
    if (error == 0 && szKeyOutput != nullptr)
        memcpy(szKeyOutput, keyString.data(), keyString.size() + 1);
    return frame.status(error);
}

int P12_List(char* szOutput, int nOutChars, const char* szP12, const char* szPassword, int nOptions) {
    CallFrame frame(1);
    if (is_missing(szP12))
        return frame.length(-err_missing_argument());
    SecretBuffer report;
    int length = 0;
    int error = p12_list(report, szP12, szPassword, nOptions);
    if (error == 0 && uncut_text_result(szOutput, nOutChars, report, &length) != 0)
        error = err_short_room(report.size());
    return frame.length(error, length);
}
