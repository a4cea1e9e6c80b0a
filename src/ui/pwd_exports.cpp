#include "frame/call_frame.h"
#include "ui/password_prompt.h"
#include "zulcore.h"

using namespace zul;

// No call frame: a program may ask for a password on its way to reporting the error of the call before.
int PWD_PromptEx(char* szPassword, int nPwdLen, const char* szCaption, const char* szPrompt) {
    const ClearedVectors cleared;
    rng_stir(1);
    if (szPassword == nullptr || nPwdLen < 1)
        return -BAD_PARAM_ERROR;
    return password_prompt(szPassword, nPwdLen, szCaption, szPrompt);
}

int PWD_Prompt(char* szPassword, int nPwdLen, const char* szCaption) {
    return PWD_PromptEx(szPassword, nPwdLen, szCaption, nullptr);
}
