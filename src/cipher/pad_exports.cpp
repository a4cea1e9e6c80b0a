#include <climits>
#include <cstring>

#include "cipher/padding.h"
#include "encode/hex.h"
#include "frame/call_frame.h"
#include "frame/constant_time.h"
#include "zulcore.h"

// The padding functions run outside the call frame: callers rely on the error state of the cipher call
// before, so nothing here clears or records it or adds a text.

using namespace zul;

namespace {

bool block_length_known(int blkLen) {
    return blkLen == 8 || blkLen == 16;
}

// Length of data and pad together in units of unitSize to the byte, or -BAD_LENGTH_ERROR.
int padded_length(size_t bytes, int blkLen, size_t unitSize) {
    const size_t padded = bytes + pad_bytes_needed(bytes, static_cast<size_t>(blkLen));
    return padded > INT_MAX / unitSize ? -BAD_LENGTH_ERROR : static_cast<int>(padded * unitSize);
}

} // namespace

int PAD_BytesBlock(unsigned char* lpOutput, int nOutputLen, const unsigned char* lpInput, int nInputLen,
                   int nBlkLen, int) {
    const ClearedRegisters cleared;
    if (!block_length_known(nBlkLen))
        return -BAD_BLK_LEN_ERROR;
    if (lpInput == nullptr && nInputLen != 0)
        return -NULL_ERROR;
    if (nInputLen < 0)
        return -BAD_PARAM_ERROR;
    const auto length = static_cast<size_t>(nInputLen);
    const int padded = padded_length(length, nBlkLen, 1);
    if (padded < 0 || lpOutput == nullptr || nOutputLen <= 0)
        return padded;
    if (nOutputLen < padded)
        return -SHORT_BUF_ERROR;
    if (length > 0)
        memmove(lpOutput, lpInput, length);
    memset(lpOutput + length, padded - nInputLen, static_cast<size_t>(padded - nInputLen));
    return padded;
}

int PAD_UnpadBytes(unsigned char* lpOutput, int nOutputLen, const unsigned char* lpInput, int nInputLen,
                   int nBlkLen, int) {
    const ClearedRegisters cleared;
    if (!block_length_known(nBlkLen))
        return -BAD_BLK_LEN_ERROR;
    if (lpOutput == nullptr || lpInput == nullptr)
        return -NULL_ERROR;
    if (nInputLen <= 0 || nInputLen % nBlkLen != 0)
        return -BAD_LENGTH_ERROR;
    const size_t pad = ct_declassify(pad_count(lpInput + nInputLen - nBlkLen, static_cast<size_t>(nBlkLen)));
    if (pad == 0)
        return -DECRYPT_ERROR;
    const int length = nInputLen - static_cast<int>(pad);
    if (nOutputLen < length)
        return -SHORT_BUF_ERROR;
    memmove(lpOutput, lpInput, static_cast<size_t>(length));
    return length;
}

int PAD_HexBlock(char* szOutput, int nOutChars, const char* szInputHex, int nBlkLen, int) {
    const ClearedRegisters cleared;
    if (!block_length_known(nBlkLen))
        return -BAD_BLK_LEN_ERROR;
    if (szInputHex == nullptr)
        return -NULL_ERROR;
    const size_t chars = strlen(szInputHex);
    if (chars % 2 != 0)
        return -BAD_FORMAT_ERROR;
    const int padded = padded_length(chars / 2, nBlkLen, 2);
    if (padded < 0 || szOutput == nullptr || nOutChars <= 0)
        return padded;
    if (nOutChars < padded)
        return -SHORT_BUF_ERROR;
    memmove(szOutput, szInputHex, chars); // NOLINT(bugprone-not-null-terminated-result): the padding ends it
    const size_t pad = pad_bytes_needed(chars / 2, static_cast<size_t>(nBlkLen));
    const auto padByte = static_cast<uint8_t>(pad);
    for (size_t i = 0; i < pad; i++)
        hex_encode(szOutput + chars + 2 * i, 3, &padByte, 1);
    return padded;
}

int PAD_UnpadHex(char* szOutput, int nOutChars, const char* szInputHex, int nBlkLen, int) {
    const ClearedRegisters cleared;
    if (!block_length_known(nBlkLen))
        return -BAD_BLK_LEN_ERROR;
    if (szOutput == nullptr || szInputHex == nullptr)
        return -NULL_ERROR;
    const size_t chars = strlen(szInputHex);
    const auto block = static_cast<size_t>(nBlkLen);
    if (chars == 0 || chars % 2 != 0)
        return -BAD_FORMAT_ERROR;
    if (chars / 2 % block != 0 || chars > INT_MAX)
        return -BAD_LENGTH_ERROR;
    const size_t pad = pad_hex_count(szInputHex + chars - 2 * block, block);
    if (pad == 0)
        return -DECRYPT_ERROR;
    const int length = static_cast<int>(chars - 2 * pad);
    if (nOutChars < length)
        return -SHORT_BUF_ERROR;
    memmove(szOutput, szInputHex, static_cast<size_t>(length));
    szOutput[length] = '\0';
    return length;
}
