#include "encode/pem.h"
#include "frame/call_frame.h"
#include "frame/text.h"
#include "zulcore.h"

using namespace zul;

int PEM_FileFromBinFile(const char* szFileOut, const char* szFileIn, const char* szHeader, int nLineLen) {
    CallFrame frame;
    if (is_missing(szFileOut) || is_missing(szFileIn))
        return frame.length(-BAD_PARAM_ERROR);
    return frame.length(-pem_file_from_file(szFileOut, szFileIn, szHeader, nLineLen));
}

int PEM_FileToBinFile(const char* szFileOut, const char* szFileIn) {
    CallFrame frame;
    if (is_missing(szFileOut) || is_missing(szFileIn))
        return frame.length(-BAD_PARAM_ERROR);
    return frame.length(-pem_file_to_file(szFileOut, szFileIn));
}
