#include "frame/call_frame.h"
#include "ui/password_prompt.h"
#include "zulcore.h"

using namespace zul;

// These exports have no call frame, so the error state of the call before stays: a program may report it
// after the prompt.
int PWD_PromptEx(char* szPassword, int nPwdLen, const char* szCaption, const char* szPrompt) {
    const ClearedRegisters cleared;
    rng_stir(1);
    if (szPassword == nullptr || nPwdLen < 1)
        return -BAD_PARAM_ERROR;
    return password_prompt(szPassword, nPwdLen, szCaption, szPrompt);
}

int PWD_Prompt(char* szPassword, int nPwdLen, const char* szCaption) {
    return PWD_PromptEx(szPassword, nPwdLen, szCaption, nullptr);
}
