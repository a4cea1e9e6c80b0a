#include <cstring>

#include "cms/content/content_output.h"
#include "cms/enveloped/enveloped_data_make.h"
#include "cms/enveloped/enveloped_data_open.h"
#include "cms/message/message_query.h"
#include "cms/signed/signed_data_make.h"
#include "cms/signed/signed_data_read.h"
#include "cms/signed/signed_data_verify.h"
#include "frame/call_frame.h"
#include "frame/text.h"
#include "hash/digest_output.h"
#include "zulcore.h"

using namespace zul;

namespace {

// make does what all makers of signed messages have in common: a message of certificates alone needs neither
// content nor key.
template<class Maker>
int make(const char* fileOut, const char* certList, bool isRestMissing, int options, Maker maker) {
    CallFrame frame;
    if (is_missing(fileOut) || is_missing(certList))
        return frame.status(BAD_PARAM_ERROR);
    if ((options & ZUL_CMS_CERTS_ONLY) != 0)
        return frame.status(make_certs_only(fileOut, certList, options));
    return frame.status(isRestMissing ? int{BAD_PARAM_ERROR} : maker());
}

Seed seed_of(const unsigned char* bytes, int size) {
    return {bytes, static_cast<size_t>(size)};
}

int query(CallFrame& frame, const MessageKind& kind, char* out, int room, const char* fileOrText,
          const char* keyword, int options) {
    QueryAnswer answer(out, room);
    const int error = query_by_keyword(kind, fileOrText, keyword, options, answer);
    return frame.length(error, answer.value());
}

} // namespace

int CMS_MakeSigData(const char* szFileOut, const char* szFileIn, const char* szCertList,
                    const char* szPrivateKey, int nOptions) {
    return make(szFileOut, szCertList, is_missing(szFileIn) || is_missing(szPrivateKey), nOptions,
                [=] { return make_signed_file(szFileOut, szFileIn, szCertList, szPrivateKey, nOptions); });
}

int CMS_MakeSigDataFromString(const char* szFileOut, const char* szDataIn, const char* szCertList,
                              const char* szPrivateKey, int nOptions) {
    return make(szFileOut, szCertList, is_missing(szDataIn) || is_missing(szPrivateKey), nOptions, [=] {
        return make_signed_bytes(szFileOut, szDataIn, strlen(szDataIn), szCertList, szPrivateKey, nOptions);
    });
}

int CMS_MakeDetachedSig(const char* szFileOut, const char* szHexDigest, const char* szCertList,
                        const char* szPrivateKey, int nOptions) {
    return make(szFileOut, szCertList, is_missing(szHexDigest) || is_missing(szPrivateKey), nOptions, [=] {
        return make_detached_signature(szFileOut, szHexDigest, szCertList, szPrivateKey, nOptions);
    });
}

int CMS_MakeSigDataFromSigValue(const char* szFileOut, const unsigned char* lpSigValue, int nSigLen,
                                const unsigned char* lpData, int nDataLen, const char* szCertList,
                                int nOptions) {
    const bool isRestMissing = lpSigValue == nullptr || nSigLen <= 0 || lpData == nullptr || nDataLen <= 0;
    return make(szFileOut, szCertList, isRestMissing, nOptions, [=] {
        return make_signed_with_value(szFileOut, lpSigValue, static_cast<size_t>(nSigLen), lpData,
                                      static_cast<size_t>(nDataLen), szCertList, nOptions);
    });
}

int CMS_ReadSigData(const char* szFileOut, const char* szFileIn, int /*nOptions*/) {
    CallFrame frame(1);
    if (is_missing(szFileOut) || is_missing(szFileIn))
        return frame.length(-BAD_PARAM_ERROR);
    int size = 0;
    const int error = signed_content_to_file(szFileOut, szFileIn, &size);
    return frame.length(error, size);
}

int CMS_ReadSigDataToString(char* szDataOut, int nDataOutLen, const char* szFileIn, int /*nOptions*/) {
    CallFrame frame(1);
    if (is_missing(szFileIn))
        return frame.length(-BAD_PARAM_ERROR);
    int size = 0;
    const int error = signed_content_to_room(szDataOut, nDataOutLen, szFileIn, &size);
    return frame.length(error, size);
}

int CMS_VerifySigData(const char* szFileIn, const char* szCertFile, const char* szHexDigest,
                      int /*nOptions*/) {
    CallFrame frame(1);
    if (is_missing(szFileIn))
        return frame.status(BAD_PARAM_ERROR);
    return frame.status(verify_signed_data(szFileIn, szCertFile, szHexDigest));
}

int CMS_GetSigDataDigest(char* szHexDigestOut, int nDigestLen, const char* szFileIn, const char* szCertFile,
                         int /*nOptions*/) {
    CallFrame frame(1);
    if (is_missing(szFileIn))
        return frame.length(-BAD_PARAM_ERROR);
    SecretBuffer digest;
    if (const int error = signed_data_digest(szFileIn, szCertFile, digest))
        return frame.length(-error);
    return frame.length(
        digest_hex_result(szHexDigestOut, nDigestLen, digest.data(), static_cast<int>(digest.size())));
}

int CMS_QuerySigData(char* szOutput, int nOutChars, const char* szFileIn, const char* szQuery, int nOptions) {
    CallFrame frame(1);
    return query(frame, {is_signed_data_query, query_signed_data}, szOutput, nOutChars, szFileIn, szQuery,
                 nOptions);
}

int X509_GetCertFromP7Chain(const char* szNewCertFile, const char* szP7cFile, int nIndex, int /*nOptions*/) {
    CallFrame frame(1);
    if (is_missing(szP7cFile))
        return frame.length(-BAD_PARAM_ERROR);
    int result = 0;
    const int error = carried_certificate(szNewCertFile, szP7cFile, nIndex, &result);
    return frame.length(error, result);
}

int CMS_MakeEnvData(const char* szFileOut, const char* szFileIn, const char* szCertList,
                    const unsigned char* lpSeed, int nSeedLen, int nOptions) {
    CallFrame frame;
    if (is_missing(szFileOut) || is_missing(szFileIn) || is_missing(szCertList) || nSeedLen < 0)
        return frame.length(-BAD_PARAM_ERROR);
    int count = 0;
    const int error =
        make_enveloped_file(szFileOut, szFileIn, szCertList, seed_of(lpSeed, nSeedLen), nOptions, &count);
    return frame.length(error, count);
}

int CMS_MakeEnvDataFromString(const char* szFileOut, const char* szDataIn, const char* szCertList,
                              const unsigned char* lpSeed, int nSeedLen, int nOptions) {
    CallFrame frame;
    if (is_missing(szFileOut) || szDataIn == nullptr || is_missing(szCertList) || nSeedLen < 0)
        return frame.length(-BAD_PARAM_ERROR);
    int count = 0;
    const int error = make_enveloped_bytes(szFileOut, szDataIn, strlen(szDataIn), szCertList,
                                           seed_of(lpSeed, nSeedLen), nOptions, &count);
    return frame.length(error, count);
}

int CMS_ReadEnvData(const char* szFileOut, const char* szFileIn, const char* szX509File,
                    const char* szPrivateKey, int /*nOptions*/) {
    CallFrame frame;
    if (is_missing(szFileOut) || is_missing(szFileIn) || is_missing(szPrivateKey))
        return frame.length(-BAD_PARAM_ERROR);
    SecretBuffer content;
    int error = open_enveloped_data(szFileIn, szX509File, szPrivateKey, content);
    if (error == 0)
        error = bytes_to_file(content, szFileOut);
    return frame.length(-error);
}

int CMS_ReadEnvDataToString(char* szDataOut, int nDataOutLen, const char* szFileIn, const char* szX509File,
                            const char* szPrivateKey, int /*nOptions*/) {
    CallFrame frame;
    if (is_missing(szFileIn) || is_missing(szPrivateKey))
        return frame.length(-BAD_PARAM_ERROR);
    SecretBuffer content;
    int size = 0;
    int error = open_enveloped_data(szFileIn, szX509File, szPrivateKey, content);
    if (error == 0)
        error = bytes_to_room(content, szDataOut, nDataOutLen, &size);
    return frame.length(error, size);
}

int CMS_QueryEnvData(char* szOutput, int nOutChars, const char* szFileIn, const char* szQuery, int nOptions) {
    CallFrame frame;
    return query(frame, {is_enveloped_data_query, query_enveloped_data}, szOutput, nOutChars, szFileIn,
                 szQuery, nOptions);
}
