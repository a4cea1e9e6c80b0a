#include "frame/call_frame.h"
#include "x509/dump/text_dump.h"
#include "zulcore.h"

using namespace zul;

int X509_TextDump(const char* szFileOut, const char* szCertFile, int nOptions) {
    CallFrame frame;
    static_cast<void>(nOptions);
    if (szFileOut == nullptr || *szFileOut == '\0' || szCertFile == nullptr || *szCertFile == '\0')
        return frame.length(-BAD_PARAM_ERROR);
    return frame.length(text_dump(szFileOut, szCertFile));
}
