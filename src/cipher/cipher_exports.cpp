#include "cipher/cipher_choice.h"
#include "cipher/cipher_file.h"
#include "cipher/cipher_text.h"
#include "cipher/key_wrap.h"
#include "cipher/random_bytes.h"
#include "frame/call_frame.h"
#include "frame/err.h"
#include "zulcore.h"

// A bad choice of cipher comes back negated, every other failure positive; callers test for nonzero. The
// frame records both alike.

using namespace zul;

namespace {

[[nodiscard]] int generator_bytes(uint8_t* out, size_t length) {
    return rng_bytes(out, length, nullptr, 0);
}

// The checks that wrapping and unwrapping share.
[[nodiscard]] int check_wrap_arguments(CipherAlgorithm* algorithm, const unsigned char* data,
                                       const unsigned char* kek, int kekLen, int options) {
    if (data == nullptr || kek == nullptr)
        return BAD_PARAM_ERROR;
    const BlockCipher* cipher = block_cipher_option(options);
    if (cipher == nullptr)
        return BAD_FLAG_ERROR;
    *algorithm = cipher->algorithm;
    const int needed = static_cast<int>(cipher->keyLength);
    if (kekLen != needed)
        return err_fail(BAD_KEY_LEN_ERROR, "The key-encryption key must be of %d bytes", needed);
    return 0;
}

} // namespace

int CIPHER_Bytes(int fEncrypt, unsigned char* lpOutput, const unsigned char* lpInput, int nBytes,
                 const unsigned char* lpKey, const unsigned char* lpIV, const char* szAlgAndMode,
                 int nOptions) {
    CallFrame frame;
    CipherChoice choice{};
    if (const int code = cipher_choose(&choice, szAlgAndMode, nOptions))
        return frame.status(-code);
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
        return frame.status(-code);
    const size_t outSize = nOutChars < 0 ? 0 : static_cast<size_t>(nOutChars) + 1;
    return frame.status(cipher_text(choice, fEncrypt != 0, TextEncoding::hex, szOutput, outSize, szInputHex,
                                    szKeyHex, szIVHex));
}

int CIPHER_File(int fEncrypt, const char* szFileOut, const char* szFileIn, const unsigned char* lpKey,
                const unsigned char* lpIV, const char* szAlgAndMode, int nOptions) {
    CallFrame frame;
    CipherChoice choice{};
    if (const int code = cipher_choose(&choice, szAlgAndMode, nOptions))
        return frame.status(-code);
    return frame.status(cipher_file(choice, fEncrypt != 0, szFileOut, szFileIn, lpKey, lpIV));
}

int CIPHER_KeyWrap(unsigned char* lpOutput, int nOutBytes, const unsigned char* lpData, int nDataLen,
                   const unsigned char* lpKEK, int nKekLen, int nOptions) {
    CallFrame frame;
    CipherAlgorithm algorithm{};
    if (const int code = check_wrap_arguments(&algorithm, lpData, lpKEK, nKekLen, nOptions))
        return frame.length(-code);
    int length = 0;
    if (const int code = wrapped_key_length(algorithm, nDataLen, &length))
        return frame.length(-code);
    if (lpOutput == nullptr || nOutBytes <= 0)
        return length;
    if (nOutBytes < length)
        return frame.length(-SHORT_BUF_ERROR);
    const int code = algorithm == CipherAlgorithm::tdea
                         ? tdes_key_wrap(lpOutput, lpData, lpKEK, generator_bytes)
                         : aes_key_wrap(lpOutput, lpData, static_cast<size_t>(nDataLen), lpKEK,
                                        static_cast<size_t>(nKekLen));
    return frame.length(code, length);
}

int CIPHER_KeyUnwrap(unsigned char* lpOutput, int nOutBytes, const unsigned char* lpData, int nDataLen,
                     const unsigned char* lpKEK, int nKekLen, int nOptions) {
    CallFrame frame;
    CipherAlgorithm algorithm{};
    if (const int code = check_wrap_arguments(&algorithm, lpData, lpKEK, nKekLen, nOptions))
        return frame.length(-code);
    int length = 0;
    if (const int code = unwrapped_key_length(algorithm, nDataLen, &length))
        return frame.length(-code);
    if (lpOutput == nullptr || nOutBytes <= 0)
        return length;
    if (nOutBytes < length)
        return frame.length(-SHORT_BUF_ERROR);
    const int code = algorithm == CipherAlgorithm::tdea
                         ? tdes_key_unwrap(lpOutput, lpData, lpKEK)
                         : aes_key_unwrap(lpOutput, lpData, static_cast<size_t>(nDataLen), lpKEK,
                                          static_cast<size_t>(nKekLen));
    return frame.length(code, length);
}
