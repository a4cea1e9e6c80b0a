#include <climits>

#include "cipher/aead.h"
#include "cipher/random_bytes.h"
#include "frame/call_frame.h"
#include "frame/err.h"
#include "frame/wipe.h"
#include "zulcore.h"

using namespace zul;

namespace {

struct AeadCall {
    unsigned char* output;
    int outBytes;
    const unsigned char* input;
    int inputLen;
    const unsigned char* key;
    int keyLen;
    const unsigned char* nonce;
    int nonceLen;
    const unsigned char* aad;
    int aadLen;
    const char* algorithm;
    int options;

    bool has_random_nonce() const { return (options & ZUL_AEAD_RANDOM_NONCE) != 0; }

    // read fills in what both directions need, the nonce apart.
    int read(Aead& aead, AeadInput& to) const {
        if (const int error = aead_find(aead, algorithm))
            return error;
        if (inputLen < 0 || aadLen < 0 || keyLen < 0 || nonceLen < 0 || (input == nullptr && inputLen > 0) ||
            (aad == nullptr && aadLen > 0) || key == nullptr || (nonce == nullptr && !has_random_nonce()))
            return err_missing_argument();
        if ((options & ~ZUL_AEAD_RANDOM_NONCE) != 0)
            return err_unknown_option();
        if (has_random_nonce() && nonceLen > 0)
            return err_fail(BAD_IV_ERROR, "A nonce is given where a random one is asked for");
        to = {key,
              nonce,
              aad,
              input,
              static_cast<size_t>(keyLen),
              static_cast<size_t>(nonceLen),
              static_cast<size_t>(aadLen),
              static_cast<size_t>(inputLen)};
        return 0;
    }
};

int encrypt_call(const AeadCall& call, int& length) {
    Aead algorithm{};
    AeadInput input{};
    if (const int error = call.read(algorithm, input))
        return error;
    const size_t front = call.has_random_nonce() ? kAeadRandomNonce : 0;
    if (call.has_random_nonce())
        input.nonceSize = kAeadRandomNonce;
    if (const int error = aead_check(algorithm, input))
        return error;
    if (input.size > INT_MAX - front - kAeadTag)
        return err_fail(BAD_LENGTH_ERROR, "The output would be too long for a result");
    length = static_cast<int>(front + input.size + kAeadTag);
    if (call.output == nullptr || call.outBytes <= 0)
        return 0;
    if (call.outBytes < length)
        return err_short_room(static_cast<size_t>(length));
    if (front > 0) {
        if (const int error = rng_bytes(call.output, front, nullptr, 0))
            return error;
        input.nonce = call.output;
    }
    aead_encrypt(algorithm, call.output + front, input);
    return 0;
}

int decrypt_call(const AeadCall& call, int& length) {
    Aead algorithm{};
    AeadInput input{};
    if (const int error = call.read(algorithm, input))
        return error;
    const size_t front = call.has_random_nonce() ? kAeadRandomNonce : 0;
    if (input.size < front + kAeadTag)
        return err_fail(BAD_LENGTH_ERROR, "The input is too short to hold a tag");
    if (front > 0) {
        input.nonce = input.data;
        input.nonceSize = front;
        input.data += front;
    }
    if (const int error = aead_check(algorithm, input))
        return error;
    input.size -= front + kAeadTag;
    length = static_cast<int>(input.size);
    const bool isQuery = call.output == nullptr || call.outBytes <= 0;
    if (isQuery && length > 0)
        return 0;
    if (!isQuery && call.outBytes < length)
        return err_short_room(static_cast<size_t>(length));
    if (aead_decrypt(algorithm, call.output, input) != 0)
        return err_fail(DECRYPT_ERROR, "The tag is wrong");
    return 0;
}

} // namespace

int AEAD_Encrypt(unsigned char* lpOutput, int nOutBytes, const unsigned char* lpInput, int nInputLen,
                 const unsigned char* lpKey, int nKeyLen, const unsigned char* lpNonce, int nNonceLen,
                 const unsigned char* lpAad, int nAadLen, const char* szAlgorithm, int nOptions) {
    CallFrame frame;
    int length = 0;
    const int error = encrypt_call({lpOutput, nOutBytes, lpInput, nInputLen, lpKey, nKeyLen, lpNonce,
                                    nNonceLen, lpAad, nAadLen, szAlgorithm, nOptions},
                                   length);
    return frame.length(error != 0 ? -error : length);
}

int AEAD_Decrypt(unsigned char* lpOutput, int nOutBytes, const unsigned char* lpInput, int nInputLen,
                 const unsigned char* lpKey, int nKeyLen, const unsigned char* lpNonce, int nNonceLen,
                 const unsigned char* lpAad, int nAadLen, const char* szAlgorithm, int nOptions) {
    CallFrame frame;
    int length = 0;
    const int error = decrypt_call({lpOutput, nOutBytes, lpInput, nInputLen, lpKey, nKeyLen, lpNonce,
                                    nNonceLen, lpAad, nAadLen, szAlgorithm, nOptions},
                                   length);
    return frame.length(error != 0 ? -error : length);
}
