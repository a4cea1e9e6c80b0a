#include <climits>

#include "cipher/cipher_choice.h"
#include "cipher/key_wrap.h"
#include "frame/call_frame.h"
#include "zulcore.h"

namespace zul {

// rng_bytes belongs to the random generator, a floor above this one, which defines it. It returns 0 or an
// error code.
[[nodiscard]] int rng_bytes(unsigned char* out, size_t len, const unsigned char* addl, size_t addlLen);

} // namespace zul

using namespace zul;

namespace {

int generator_bytes(uint8_t* out, size_t length) {
    return -rng_bytes(out, length, nullptr, 0);
}

// The checks that wrapping and unwrapping share. Returns 0 or a negated code.
int check_arguments(CipherAlgorithm* algorithm, const unsigned char* data, const unsigned char* kek,
                    int kekLen, int options) {
    if (data == nullptr || kek == nullptr)
        return -BAD_PARAM_ERROR;
    if (!cipher_algorithm_option(algorithm, options))
        return -BAD_FLAG_ERROR;
    const int needed = static_cast<int>(cipher_key_length(*algorithm));
    if (kekLen != needed) {
        err_add_text("The key-encryption key must be of %d bytes", needed);
        return -BAD_KEY_LEN_ERROR;
    }
    return 0;
}

// The length of the wrapped form of a key, or -BAD_LENGTH_ERROR.
int wrapped_length(CipherAlgorithm algorithm, int keyLen) {
    constexpr int overhead = static_cast<int>(kAesWrapOverhead);
    if (algorithm == CipherAlgorithm::tdea)
        return keyLen == static_cast<int>(kTdesWrapKey) ? static_cast<int>(kTdesWrappedKey)
                                                        : -BAD_LENGTH_ERROR;
    return keyLen >= 16 && keyLen % 8 == 0 && keyLen <= INT_MAX - overhead ? keyLen + overhead
                                                                           : -BAD_LENGTH_ERROR;
}

// The length of the key in a wrapped form, or -BAD_LENGTH_ERROR.
int unwrapped_length(CipherAlgorithm algorithm, int wrappedLen) {
    if (algorithm == CipherAlgorithm::tdea)
        return wrappedLen == static_cast<int>(kTdesWrappedKey) ? static_cast<int>(kTdesWrapKey)
                                                               : -BAD_LENGTH_ERROR;
    return wrappedLen >= 24 && wrappedLen % 8 == 0 ? wrappedLen - static_cast<int>(kAesWrapOverhead)
                                                   : -BAD_LENGTH_ERROR;
}

} // namespace

int CIPHER_KeyWrap(unsigned char* lpOutput, int nOutBytes, const unsigned char* lpData, int nDataLen,
                   const unsigned char* lpKEK, int nKekLen, int nOptions) {
    CallFrame frame;
    CipherAlgorithm algorithm{};
    if (const int code = check_arguments(&algorithm, lpData, lpKEK, nKekLen, nOptions))
        return frame.length(code);
    const int length = wrapped_length(algorithm, nDataLen);
    if (length < 0 || lpOutput == nullptr || nOutBytes <= 0)
        return frame.length(length);
    if (nOutBytes < length)
        return frame.length(-SHORT_BUF_ERROR);
    const int code = algorithm == CipherAlgorithm::tdea
                         ? tdes_key_wrap(lpOutput, lpData, lpKEK, generator_bytes)
                         : aes_key_wrap(lpOutput, lpData, static_cast<size_t>(nDataLen), lpKEK,
                                        static_cast<size_t>(nKekLen));
    return frame.length(code < 0 ? code : length);
}

int CIPHER_KeyUnwrap(unsigned char* lpOutput, int nOutBytes, const unsigned char* lpData, int nDataLen,
                     const unsigned char* lpKEK, int nKekLen, int nOptions) {
    CallFrame frame;
    CipherAlgorithm algorithm{};
    if (const int code = check_arguments(&algorithm, lpData, lpKEK, nKekLen, nOptions))
        return frame.length(code);
    const int length = unwrapped_length(algorithm, nDataLen);
    if (length < 0 || lpOutput == nullptr || nOutBytes <= 0)
        return frame.length(length);
    if (nOutBytes < length)
        return frame.length(-SHORT_BUF_ERROR);
    const int code = algorithm == CipherAlgorithm::tdea
                         ? tdes_key_unwrap(lpOutput, lpData, lpKEK)
                         : aes_key_unwrap(lpOutput, lpData, static_cast<size_t>(nDataLen), lpKEK,
                                          static_cast<size_t>(nKekLen));
    return frame.length(code < 0 ? code : length);
}
