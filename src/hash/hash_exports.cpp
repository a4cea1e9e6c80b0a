#include "encode/hex.h"
#include "frame/call_frame.h"
#include "frame/memory.h"
#include "hash/digest.h"
#include "hash/digest_output.h"

using namespace zul;

// The argument checks of this family return their code without recording it: callers tell a missing argument
// from a failure of the work by ZUL_ErrorCode being 0.

namespace {

bool is_missing(const char* text) {
    return text == nullptr || *text == '\0';
}

int hex_of_message(char* out, int outChars, const void* message, size_t size, int options) {
    Secret<kMaxDigestSize> digest;
    const int length = hash_bytes(digest.data(), kMaxDigestSize, message, static_cast<int64_t>(size),
                                  options & kDigestAlgorithmMask);
    return length < 0 ? length : digest_hex_result(out, outChars, digest.data(), length);
}

} // namespace

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

int HASH_HexFromBytes(char* szOutput, int nOutChars, const void* lpMessage, int nMsgLen, int nOptions) {
    CallFrame frame;
    if (lpMessage == nullptr || nMsgLen < 0)
        return -BAD_PARAM_ERROR;
    return frame.length(
        hex_of_message(szOutput, nOutChars, lpMessage, static_cast<size_t>(nMsgLen), nOptions));
}

int HASH_HexFromFile(char* szOutput, int nOutChars, const char* szFileName, int nOptions) {
    CallFrame frame;
    if (is_missing(szFileName))
        return -BAD_PARAM_ERROR;
    // A query needs the length only; the file must be there all the same.
    const bool query = szOutput == nullptr || nOutChars <= 0;
    Secret<kMaxDigestSize> digest;
    const int length = hash_file(query ? nullptr : digest.data(), kMaxDigestSize, szFileName, nOptions);
    return frame.length(length < 0 ? length : digest_hex_result(szOutput, nOutChars, digest.data(), length));
}

int HASH_HexFromHex(char* szOutput, int nOutChars, const char* szMsgHex, int nOptions) {
    CallFrame frame;
    if (szMsgHex == nullptr)
        return -BAD_PARAM_ERROR;
    const size_t chars = strlen(szMsgHex);
    if (chars % 2 != 0)
        return frame.length(-INVALID_DATA_ERROR);
    if (chars / 2 > kMaxAllocation)
        return frame.length(-BAD_LENGTH_ERROR);
    // A text with a character that is no hex digit counts as the empty message; callers rely on a digest.
    SecretBuffer message(chars / 2);
    size_t size = 0;
    hex_decode_strict(message.data(), &size, szMsgHex, chars);
    return frame.length(hex_of_message(szOutput, nOutChars, message.data(), size, nOptions));
}
