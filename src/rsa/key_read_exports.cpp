#include "frame/call_frame.h"
#include "frame/text.h"
#include "rsa/rsa_key_input.h"
#include "rsa/rsa_key_string.h"
#include "zulcore.h"

using namespace zul;

int RSA_ReadPublicKey(char* szOutput, int nOutChars, const char* szFileOrText) {
    CallFrame frame;
    if (is_missing(szFileOrText))
        return frame.length(-BAD_PARAM_ERROR);
    RsaKey key;
    const int error = rsa_input_public_key(szFileOrText, key);
    return frame.length(error != 0 ? -error : rsa_public_key_string(szOutput, nOutChars, key));
}

int RSA_ReadPrivateKeyInfo(char* szOutput, int nOutChars, const char* szFileOrText) {
    CallFrame frame;
    if (is_missing(szFileOrText))
        return frame.length(-BAD_PARAM_ERROR);
    RsaKey key;
    const int error = rsa_input_private_key(szFileOrText, key);
    return frame.length(error != 0 ? -error : rsa_private_key_string(szOutput, nOutChars, key));
}

int RSA_ReadEncPrivateKey(char* szOutput, int nOutChars, const char* szFileOrText, const char* szPassword,
                          int nOptions) {
    CallFrame frame(1);
    static_cast<void>(nOptions); // the file tells its scheme
    if (is_missing(szFileOrText) || szPassword == nullptr)
        return frame.length(-BAD_PARAM_ERROR);
    RsaKey key;
    const int error = rsa_input_encrypted_key(szFileOrText, szPassword, key);
    return frame.length(error != 0 ? -error : rsa_private_key_string(szOutput, nOutChars, key));
}
