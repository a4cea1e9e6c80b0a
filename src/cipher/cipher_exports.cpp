#include "cipher/cipher_choice.h"
#include "cipher/cipher_file.h"
#include "cipher/cipher_text.h"
#include "frame/call_frame.h"
#include "zulcore.h"

// A bad choice of cipher comes back negated, every other failure positive; callers test for nonzero. The
// frame records both alike.

using namespace zul;

int CIPHER_Bytes(int fEncrypt, unsigned char* lpOutput, const unsigned char* lpInput, int nBytes,
                 const unsigned char* lpKey, const unsigned char* lpIV, const char* szAlgAndMode,
                 int nOptions) {
    CallFrame frame;
    CipherChoice choice{};
    if (const int code = cipher_choose(&choice, szAlgAndMode, nOptions))
        return frame.status(code);
    if (nBytes < 0)
        return frame.status(BAD_PARAM_ERROR);
    return frame.status(
        cipher_bytes(choice, fEncrypt != 0, lpOutput, lpInput, static_cast<size_t>(nBytes), lpKey, lpIV));
}

int CIPHER_Hex(int fEncrypt, char* szOutput, int nOutChars, const char* szInputHex, const char* szKeyHex,
               const char* szIVHex, const char* szAlgAndMode, int nOptions) {
    CallFrame frame;
    CipherChoice choice{};
    if (const int code = cipher_choose(&choice, szAlgAndMode, nOptions))
        return frame.status(code);
    const size_t outSize = nOutChars < 0 ? 0 : static_cast<size_t>(nOutChars) + 1;
    return frame.status(
        cipher_text(choice, fEncrypt != 0, TextEncoding::hex, szOutput, outSize, szInputHex, szKeyHex, szIVHex));
}

int CIPHER_File(int fEncrypt, const char* szFileOut, const char* szFileIn, const unsigned char* lpKey,
                const unsigned char* lpIV, const char* szAlgAndMode, int nOptions) {
    CallFrame frame;
    CipherChoice choice{};
    if (const int code = cipher_choose(&choice, szAlgAndMode, nOptions))
        return frame.status(code);
    return frame.status(cipher_file(choice, fEncrypt != 0, szFileOut, szFileIn, lpKey, lpIV));
}
