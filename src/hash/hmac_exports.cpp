#include "encode/hex.h"
#include "frame/call_frame.h"
#include "frame/memory.h"
#include "hash/digest_output.h"
#include "hash/hmac.h"

using namespace zul;

// As in the HASH_ family, the argument checks do not record.

namespace {

int hex_of_mac(char* out, int outChars, const void* message, size_t size, const void* key, size_t keyLen,
               int options) {
    Secret<kMaxDigestSize> mac;
    const int length =
        hmac_bytes(mac.data(), kMaxDigestSize, message, size, key, keyLen, options & kDigestAlgorithmMask);
    if (length < 0 && out != nullptr && outChars > 0) {
        out[0] = '\0';
        return length;
    }
    // A query doubles whatever it is given: callers know -34 as the answer to an algorithm without a MAC.
    return digest_hex_result(out, outChars, mac.data(), length);
}

} // namespace

int HMAC_Bytes(unsigned char* lpDigest, int nDigLen, const void* lpMessage, int nMsgLen, const void* lpKey,
               int nKeyLen, int nOptions) {
    CallFrame frame;
    if (lpMessage == nullptr || nMsgLen < 0 || lpKey == nullptr || nKeyLen < 0)
        return -BAD_PARAM_ERROR;
    return frame.length(hmac_bytes(lpDigest, nDigLen, lpMessage, static_cast<size_t>(nMsgLen), lpKey,
                                   static_cast<size_t>(nKeyLen), nOptions & kDigestAlgorithmMask));
}

int HMAC_HexFromBytes(char* szOutput, int nOutChars, const void* lpMessage, int nMsgLen, const void* lpKey,
                      int nKeyLen, int nOptions) {
    CallFrame frame;
    if (lpMessage == nullptr || nMsgLen < 0 || lpKey == nullptr || nKeyLen < 0)
        return -BAD_PARAM_ERROR;
    return frame.length(hex_of_mac(szOutput, nOutChars, lpMessage, static_cast<size_t>(nMsgLen), lpKey,
                                   static_cast<size_t>(nKeyLen), nOptions));
}

int HMAC_HexFromHex(char* szOutput, int nOutChars, const char* szMsgHex, const char* szKeyHex, int nOptions) {
    CallFrame frame;
    if (szMsgHex == nullptr || szKeyHex == nullptr)
        return -BAD_PARAM_ERROR;
    const size_t keyChars = strlen(szKeyHex), chars = strlen(szMsgHex);
    if (keyChars < 2)
        return frame.length(-BAD_KEY_LEN_ERROR);
    if (chars / 2 > kMaxAllocation || keyChars / 2 > kMaxAllocation)
        return frame.length(-BAD_LENGTH_ERROR);
    SecretBuffer key(keyChars / 2);
    size_t keyLen = 0;
    if (!hex_decode_strict(key.data(), &keyLen, szKeyHex, keyChars))
        return frame.length(-BAD_FORMAT_ERROR);
    if (chars % 2 != 0)
        return frame.length(-INVALID_DATA_ERROR);
    // A message with a character that is no hex digit counts as the empty one.
    SecretBuffer message(chars / 2);
    size_t size = 0;
    hex_decode_strict(message.data(), &size, szMsgHex, chars);
    return frame.length(hex_of_mac(szOutput, nOutChars, message.data(), size, key.data(), keyLen, nOptions));
}
