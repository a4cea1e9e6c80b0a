#include <cstring>

#include "cms/signed/signed_data_make.h"
#include "frame/call_frame.h"
#include "frame/text.h"
#include "zulcore.h"

using namespace zul;

namespace {

// make answers what all makers have in common: a message of certificates alone needs nothing else.
template<class Maker>
int make(const char* fileOut, const char* certList, bool isRestMissing, int options, Maker maker) {
    CallFrame frame;
    if (is_missing(fileOut) || is_missing(certList))
        return frame.status(BAD_PARAM_ERROR);
    if ((options & ZUL_CMS_CERTS_ONLY) != 0)
        return frame.status(make_certs_only(fileOut, certList, options));
    return frame.status(isRestMissing ? int{BAD_PARAM_ERROR} : maker());
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
