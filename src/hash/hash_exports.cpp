#include "frame/call_frame.h"
#include "frame/text.h"
#include "hash/digest.h"
#include "hash/digest_output.h"
#include "hash/hex_message.h"
#include "zulcore.h"

using namespace zul;

// A missing message or file name, or a negative length, is a mistake of the calling program and not a failure
// of the call: it is handed back but not recorded, so that ZUL_ErrorCode after a digest reports
// only data and file errors.

int HASH_Bytes(unsigned char* lpDigest, int nDigLen, const void* lpMessage, int nMsgLen, int nOptions) {
    CallFrame frame;
    if (lpMessage == nullptr || nMsgLen < 0)
        return -BAD_PARAM_ERROR;
    return frame.length(hash_bytes(lpDigest, nDigLen, lpMessage, nMsgLen, nOptions & kDigestAlgorithmMask));
}

int HASH_File(unsigned char* lpDigest, int nDigLen, const char* szFileName, int nOptions) {
    CallFrame frame;
    if (is_missing(szFileName))
        return -BAD_PARAM_ERROR;
    return frame.length(hash_file(lpDigest, nDigLen, szFileName, nOptions));
}

// The room for the digest of a hex text. A query has none, so that no digest is computed for it.
static int digest_room(const char* szOutput, int nOutChars) {
    return szOutput != nullptr && nOutChars > 0 ? int{kMaxDigestSize} : 0;
}

static int hex_of_bytes(char* szOutput, int nOutChars, const void* message, size_t length, int nOptions) {
    Secret<kMaxDigestSize> digest;
    const int result = hash_bytes(digest.data(), digest_room(szOutput, nOutChars), message,
                                  static_cast<int64_t>(length), nOptions & kDigestAlgorithmMask);
    return result < 0 ? result : digest_hex_result(szOutput, nOutChars, digest.data(), result);
}

int HASH_HexFromBytes(char* szOutput, int nOutChars, const void* lpMessage, int nMsgLen, int nOptions) {
    CallFrame frame;
    if (lpMessage == nullptr || nMsgLen < 0)
        return -BAD_PARAM_ERROR;
    return frame.length(hex_of_bytes(szOutput, nOutChars, lpMessage, static_cast<size_t>(nMsgLen), nOptions));
}

int HASH_HexFromFile(char* szOutput, int nOutChars, const char* szFileName, int nOptions) {
    CallFrame frame;
    if (is_missing(szFileName))
        return -BAD_PARAM_ERROR;
    Secret<kMaxDigestSize> digest;
    const int result =
        frame.length(hash_file(digest.data(), digest_room(szOutput, nOutChars), szFileName, nOptions));
    return result < 0 ? result : digest_hex_result(szOutput, nOutChars, digest.data(), result);
}

int HASH_HexFromHex(char* szOutput, int nOutChars, const char* szMsgHex, int nOptions) {
    CallFrame frame;
    if (szMsgHex == nullptr)
        return -BAD_PARAM_ERROR;
    SecretBuffer message;
    if (const int error = decode_hex_message(message, szMsgHex))
        return frame.length(-error);
    return frame.length(hex_of_bytes(szOutput, nOutChars, message.data(), message.size(), nOptions));
}
