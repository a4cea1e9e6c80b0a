#include <climits>
#include <cstring>

#include "encode/base64.h"
#include "encode/hex.h"
#include "encode/utf8.h"
#include "frame/call_frame.h"
#include "frame/text.h"
#include "zulcore.h"

using namespace zul;

namespace {

const uint8_t* as_bytes(const char* text) {
    return reinterpret_cast<const uint8_t*>(text);
}
uint8_t* as_bytes(char* text) {
    return reinterpret_cast<uint8_t*>(text);
}

bool is_query(const void* output, int room) {
    return output == nullptr || room <= 0;
}

// to_length turns a size into an export's result; only a query can give one that no int holds.
int to_length(size_t size) {
    return size > INT_MAX ? -OUT_OF_RANGE_ERROR : static_cast<int>(size);
}

// The size of a text output of nOutChars characters (which is positive) and its NUL.
size_t text_size(int nOutChars) {
    return static_cast<size_t>(nOutChars) + 1;
}

// to_utf8 and to_latin1 store at most room bytes, or none with a null output, and give the length to return.
int to_utf8(uint8_t* out, int room, const uint8_t* in, size_t len) {
    if (is_query(out, room))
        return to_length(utf8_from_latin1(nullptr, 0, in, len).length);
    return to_length(utf8_from_latin1(out, static_cast<size_t>(room), in, len).stored);
}

int to_latin1(uint8_t* out, int room, const uint8_t* in, size_t len) {
    Conversion result;
    bool query = is_query(out, room);
    int error =
        latin1_from_utf8(query ? nullptr : out, query ? 0 : static_cast<size_t>(room), in, len, &result);
    if (error != 0)
        return -error;
    return to_length(query ? result.length : result.stored);
}

// end_text puts the NUL after a text output; after an error the text is empty.
int end_text(char* szOutput, int nOutChars, int result) {
    if (!is_query(szOutput, nOutChars))
        szOutput[result > 0 ? result : 0] = '\0';
    return result;
}

} // namespace

int CNV_HexStrFromBytes(char* szOutput, int nOutChars, const unsigned char* lpInput, int nInputLen) {
    CallFrame frame;
    if (lpInput == nullptr || nInputLen < 0)
        return frame.length(-BAD_PARAM_ERROR);
    auto len = static_cast<size_t>(nInputLen);
    if (is_query(szOutput, nOutChars))
        return frame.length(to_length(len * 2));
    return to_length(hex_encode(szOutput, text_size(nOutChars), lpInput, len));
}

int CNV_BytesFromHexStr(unsigned char* lpOutput, int nOutBytes, const char* szInput) {
    CallFrame frame;
    if (szInput == nullptr)
        return frame.length(-BAD_PARAM_ERROR);
    if (is_query(lpOutput, nOutBytes))
        return frame.length(to_length(hex_decoded_length(szInput)));
    return to_length(hex_decode(lpOutput, static_cast<size_t>(nOutBytes), szInput));
}

int CNV_HexFilter(char* szOutput, const char* szInput, int nStrLen) {
    CallFrame frame;
    if (szInput == nullptr || nStrLen < 0)
        return frame.length(-BAD_PARAM_ERROR);
    return to_length(hex_filter(szOutput, szInput, static_cast<size_t>(nStrLen)));
}

int CNV_B64StrFromBytes(char* szOutput, int nOutChars, const unsigned char* lpInput, int nInputLen) {
    CallFrame frame;
    if (lpInput == nullptr || nInputLen < 0)
        return frame.length(-BAD_PARAM_ERROR);
    auto len = static_cast<size_t>(nInputLen);
    if (is_query(szOutput, nOutChars))
        return frame.length(to_length(b64_encoded_length(len)));
    return to_length(b64_encode(szOutput, text_size(nOutChars), lpInput, len));
}

int CNV_BytesFromB64Str(unsigned char* lpOutput, int nOutBytes, const char* szInput) {
    CallFrame frame;
    if (szInput == nullptr)
        return frame.length(-BAD_PARAM_ERROR);
    if (is_query(lpOutput, nOutBytes))
        return frame.length(to_length(b64_decoded_length(szInput)));
    return to_length(b64_decode(lpOutput, static_cast<size_t>(nOutBytes), szInput));
}

int CNV_B64Filter(char* szOutput, const char* szInput, int nStrLen) {
    CallFrame frame;
    if (szInput == nullptr || nStrLen < 0)
        return frame.length(-BAD_PARAM_ERROR);
    return to_length(b64_filter(szOutput, szInput, static_cast<size_t>(nStrLen)));
}

int CNV_CheckUTF8(const char* szInput) {
    CallFrame frame;
    if (szInput == nullptr)
        return frame.length(-BAD_PARAM_ERROR);
    return static_cast<int>(utf8_classify(as_bytes(szInput), strlen(szInput)));
}

int CNV_CheckUTF8Bytes(const unsigned char* lpInput, int nBytes) {
    CallFrame frame;
    if (lpInput == nullptr || nBytes < 0)
        return frame.length(-BAD_PARAM_ERROR);
    return static_cast<int>(utf8_classify(lpInput, static_cast<size_t>(nBytes)));
}

// In the four conversions of text an empty input counts as a missing one.

int CNV_UTF8FromLatin1(char* szOutput, int nOutChars, const char* szInput) {
    CallFrame frame;
    if (is_missing(szInput))
        return frame.length(-BAD_PARAM_ERROR);
    int result = to_utf8(as_bytes(szOutput), nOutChars, as_bytes(szInput), strlen(szInput));
    return frame.length(end_text(szOutput, nOutChars, result));
}

int CNV_Latin1FromUTF8(char* szOutput, int nOutChars, const char* szInput) {
    CallFrame frame;
    if (is_missing(szInput))
        return frame.length(-BAD_PARAM_ERROR);
    int result = to_latin1(as_bytes(szOutput), nOutChars, as_bytes(szInput), strlen(szInput));
    return frame.length(end_text(szOutput, nOutChars, result));
}

int CNV_UTF8BytesFromLatin1(unsigned char* lpOutput, int nOutBytes, const char* szInput) {
    CallFrame frame;
    if (is_missing(szInput))
        return frame.length(-BAD_PARAM_ERROR);
    return frame.length(to_utf8(lpOutput, nOutBytes, as_bytes(szInput), strlen(szInput)));
}

// A successful query of this function and the next leaves the length as the thread's error code; callers read
// it there.

int CNV_Latin1FromUTF8Bytes(char* szOutput, int nOutChars, const unsigned char* lpInput, int nBytes) {
    CallFrame frame;
    if (lpInput == nullptr || nBytes <= 0 || lpInput[0] == 0)
        return frame.length(-BAD_PARAM_ERROR);
    int result = to_latin1(as_bytes(szOutput), nOutChars, lpInput, static_cast<size_t>(nBytes));
    if (is_query(szOutput, nOutChars))
        return frame.status(result);
    return frame.length(end_text(szOutput, nOutChars, result));
}

int CNV_ByteEncoding(unsigned char* lpOutput, int nOutBytes, const unsigned char* lpInput, int nBytes,
                     int nOptions) {
    CallFrame frame;
    if (lpInput == nullptr || nBytes < 0)
        return frame.length(-BAD_PARAM_ERROR);
    auto len = static_cast<size_t>(nBytes);
    int result = -BAD_FLAG_ERROR;
    switch (nOptions & 0xF) {
    case ZUL_CNV_UTF8_FROM_LATIN1:
        result = to_utf8(lpOutput, nOutBytes, lpInput, len);
        break;
    case ZUL_CNV_LATIN1_FROM_UTF8:
        result = to_latin1(lpOutput, nOutBytes, lpInput, len);
        break;
    default:
        break;
    }
    return is_query(lpOutput, nOutBytes) ? frame.status(result) : frame.length(result);
}
