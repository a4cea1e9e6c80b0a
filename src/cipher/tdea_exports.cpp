#include "cipher/cipher_choice.h"
#include "cipher/cipher_file.h"
#include "cipher/cipher_text.h"
#include "frame/call_frame.h"
#include "zulcore.h"

// The TDEA_ family is Triple DES with the mode as a text; every failure is positive.

using namespace zul;

namespace {

int tdea_text(TextEncoding encoding, char* output, const char* input, const char* key, bool encrypt,
              const char* modeText, const char* iv) {
    CallFrame frame;
    CipherChoice choice{CipherAlgorithm::tdea, CipherMode::ecb};
    if (const int code = cipher_mode_from_text(&choice.mode, modeText))
        return frame.status(code);
    return frame.status(cipher_text(choice, encrypt, encoding, output, kAmpleRoom, input, key, iv));
}

} // namespace

int TDEA_BytesMode(unsigned char* lpOutput, const unsigned char* lpInput, int nBytes,
                   const unsigned char* lpKey, int fEncrypt, const char* szMode, const unsigned char* lpIV) {
    CallFrame frame;
    CipherChoice choice{CipherAlgorithm::tdea, CipherMode::ecb};
    if (const int code = cipher_mode_from_text(&choice.mode, szMode))
        return frame.status(code);
    if (nBytes < 0)
        return frame.status(BAD_PARAM_ERROR);
    return frame.status(
        cipher_bytes(choice, fEncrypt != 0, lpOutput, lpInput, static_cast<size_t>(nBytes), lpKey, lpIV));
}

int TDEA_HexMode(char* szOutput, const char* szInputHex, const char* szKeyHex, int fEncrypt,
                 const char* szMode, const char* szIVHex) {
    return tdea_text(TextEncoding::hex, szOutput, szInputHex, szKeyHex, fEncrypt != 0, szMode, szIVHex);
}

int TDEA_B64Mode(char* szOutput, const char* szInputB64, const char* szKeyB64, int fEncrypt,
                 const char* szMode, const char* szIVB64) {
    return tdea_text(TextEncoding::base64, szOutput, szInputB64, szKeyB64, fEncrypt != 0, szMode, szIVB64);
}

int TDEA_File(const char* szFileOut, const char* szFileIn, const unsigned char* lpKey, int fEncrypt,
              const char* szMode, const unsigned char* lpIV) {
    CallFrame frame;
    CipherChoice choice{CipherAlgorithm::tdea, CipherMode::ecb};
    if (const int code = cipher_mode_from_text(&choice.mode, szMode))
        return frame.status(code);
    return frame.status(cipher_file(choice, fEncrypt != 0, szFileOut, szFileIn, lpKey, lpIV));
}
