#include "frame/call_frame.h"
#include "hash/digest_output.h"
#include "hash/hex_message.h"
#include "hash/hmac.h"
#include "zulcore.h"

using namespace zul;

// As in the HASH_ family, a missing message or key, or a negative length, is handed back but not recorded.

static bool bytes_missing(const void* lpMessage, int nMsgLen, const void* lpKey, int nKeyLen) {
    return lpMessage == nullptr || nMsgLen < 0 || lpKey == nullptr || nKeyLen < 0;
}

int HMAC_Bytes(unsigned char* lpDigest, int nDigLen, const void* lpMessage, int nMsgLen, const void* lpKey,
               int nKeyLen, int nOptions) {
    CallFrame frame;
    if (bytes_missing(lpMessage, nMsgLen, lpKey, nKeyLen))
        return -BAD_PARAM_ERROR;
    return frame.length(hmac_bytes(lpDigest, nDigLen, lpMessage, static_cast<size_t>(nMsgLen), lpKey,
                                   static_cast<size_t>(nKeyLen), nOptions & kDigestAlgorithmMask));
}

static int hex_mac(char* szOutput, int nOutChars, const void* message, size_t messageLen, const void* key,
                   size_t keyLen, int nOptions) {
    Secret<kMaxDigestSize> mac;
    const bool wantsOutput = szOutput != nullptr && nOutChars > 0;
    const int room = wantsOutput ? int{kMaxDigestSize} : 0;
    const int result =
        hmac_bytes(mac.data(), room, message, messageLen, key, keyLen, nOptions & kDigestAlgorithmMask);
    if (result < 0) {
        if (!wantsOutput)
            return 2 * result; // callers know a bad algorithm in a query as -34, not as -17
        szOutput[0] = '\0';
        return result;
    }
    return digest_hex_result(szOutput, nOutChars, mac.data(), result);
}

int HMAC_HexFromBytes(char* szOutput, int nOutChars, const void* lpMessage, int nMsgLen, const void* lpKey,
                      int nKeyLen, int nOptions) {
    CallFrame frame;
    if (bytes_missing(lpMessage, nMsgLen, lpKey, nKeyLen))
        return -BAD_PARAM_ERROR;
    return frame.length(hex_mac(szOutput, nOutChars, lpMessage, static_cast<size_t>(nMsgLen), lpKey,
                                static_cast<size_t>(nKeyLen), nOptions));
}

int HMAC_HexFromHex(char* szOutput, int nOutChars, const char* szMsgHex, const char* szKeyHex, int nOptions) {
    CallFrame frame;
    if (szMsgHex == nullptr || szKeyHex == nullptr)
        return -BAD_PARAM_ERROR;
    SecretBuffer key, message;
    int error = decode_hex_key(key, szKeyHex);
    if (error == 0)
        error = decode_hex_message(message, szMsgHex);
    if (error != 0)
        return frame.length(-error);
    return frame.length(
        hex_mac(szOutput, nOutChars, message.data(), message.size(), key.data(), key.size(), nOptions));
}
