#include "frame/call_frame.h"
#include "frame/wipe.h"
#include "frame/wipe_file.h"
#include "zulcore.h"

using namespace zul;

int WIPE_Data(void* lpData, int nDataLen) {
    CallFrame frame;
    if (lpData == nullptr || nDataLen <= 0)
        return frame.status(BAD_PARAM_ERROR);
    wipe_bytes(lpData, static_cast<size_t>(nDataLen));
    return frame.status(0);
}

int WIPE_File(const char* szFileName, int) {
    CallFrame frame;
    if (szFileName == nullptr)
        return frame.status(NULL_ERROR);
    return frame.status(wipe_file(szFileName));
}
