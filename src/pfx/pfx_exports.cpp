#include "frame/call_frame.h"
#include "frame/text.h"
#include "pfx/pfx_make.h"
#include "pfx/pfx_read.h"
#include "zulcore.h"

using namespace zul;

namespace {

const char* or_empty(const char* text) {
    return text == nullptr ? "" : text;
}

} // namespace

int PFX_MakeFile(const char* szFileOut, const char* szCertFile, const char* szKeyFile, const char* szPassword,
                 const char* szFriendlyName, int nOptions) {
    CallFrame frame(1);
    if (is_missing(szFileOut) || is_missing(szCertFile))
        return frame.status(BAD_PARAM_ERROR);
    return frame.status(pfx_make({szFileOut, szCertFile, or_empty(szKeyFile), or_empty(szPassword),
                                  or_empty(szFriendlyName), nOptions}));
}

int PFX_VerifySig(const char* szPfxFile, const char* szPassword, int /*nOptions*/) {
    CallFrame frame(1);
    if (is_missing(szPfxFile))
        return frame.status(BAD_PARAM_ERROR);
    return frame.status(pfx_verify(szPfxFile, or_empty(szPassword)));
}

int X509_GetCertFromPFX(const char* szFileOut, const char* szPfxFile, int /*nOptions*/) {
    CallFrame frame(1);
    if (is_missing(szFileOut) || is_missing(szPfxFile))
        return frame.status(BAD_PARAM_ERROR);
    return frame.status(pfx_extract(szFileOut, szPfxFile, PfxContent::certificate));
}

int RSA_GetPrivateKeyFromPFX(const char* szFileOut, const char* szPfxFile, int /*nOptions*/) {
    CallFrame frame(1);
    if (is_missing(szFileOut) || is_missing(szPfxFile))
        return frame.status(BAD_PARAM_ERROR);
    return frame.status(pfx_extract(szFileOut, szPfxFile, PfxContent::key));
}
