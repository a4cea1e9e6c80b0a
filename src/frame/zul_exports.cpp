#include <climits>

#include "frame/call_frame.h"
#include "frame/error_table.h"
#include "frame/text.h"
#include "platform/platform.h"
#include "zulcore.h"

using namespace zul;

// These functions stir entropy but do not clear the error state: callers use them to ask about the call
// before.

int ZUL_ErrorCode(void) {
    rng_stir(0);
    return err_code();
}

int ZUL_LastError(char* szOutput, int nOutChars) {
    rng_stir(0);
    return text_result(szOutput, nOutChars, err_text());
}

int ZUL_ErrorLookup(char* szOutput, int nOutChars, int nErrCode) {
    rng_stir(0);
    if (nErrCode == INT_MIN) // has no positive form
        return 0;
    const ErrorRow* row = error_lookup(nErrCode < 0 ? -nErrCode : nErrCode);
    if (row == nullptr)
        return 0;
    // Here alone the room counts the NUL: old callers pass the size of their buffer.
    return text_result(szOutput, nOutChars > 0 ? nOutChars - 1 : 0, row->message);
}

int ZUL_ModuleName(char* szOutput, int nOutChars, int nOptions) {
    rng_stir(0);
    if (nOptions == ZUL_MODULE_PLATFORM)
        return text_result(szOutput, nOutChars, platform::platform_word());
    if (nOptions != 0)
        return -BAD_FLAG_ERROR;
    char path[261];
    platform::module_path(path, sizeof path);
    return text_result(szOutput, nOutChars, path);
}

int ZUL_Version(void*, void*) {
    rng_stir(0);
    return 360;
}

int ZUL_CompileTime(char* szOutput, int nOutChars) {
    rng_stir(0);
    static const char when[] = __DATE__ " " __TIME__;
    static_assert(sizeof when == 21);
    return text_result(szOutput, nOutChars, when);
}
