#include <climits>

#include "cipher/cipher_stream.h"
#include "frame/call_frame.h"
#include "frame/caller_context.h"

using namespace zul;

// A room of 0 is no query here, where nothing to write is an ordinary case: only a null output is.

namespace {

using StreamContext = CallerContext<CipherStream>;

int add(unsigned char* output, int room, void* memory, const unsigned char* input, int inputLen,
        int& length) {
    StreamContext context(ContextKind::cipher);
    if (const int error = context.load(memory))
        return error;
    if (inputLen < 0 || (input == nullptr && inputLen > 0))
        return err_missing_argument();
    const size_t needed = cipher_stream_room(*context, static_cast<size_t>(inputLen));
    if (needed > INT_MAX)
        return err_fail(BAD_LENGTH_ERROR, "The output would be too long for a result");
    length = static_cast<int>(needed);
    if (output == nullptr)
        return 0;
    if (room < length)
        return err_short_room(needed);
    cipher_stream_add(*context, output, input, static_cast<size_t>(inputLen));
    context.store(memory);
    return 0;
}

int end(unsigned char* output, int room, void* memory, int& length) {
    StreamContext context(ContextKind::cipher);
    if (const int error = context.load(memory))
        return error;
    const auto block = static_cast<int>(block_cipher(context->algorithm).blockLength);
    length = context->pads ? block : 0;
    if (output == nullptr && context->pads)
        return 0;
    if (room < length && length > 0 && context->encrypts)
        return err_short_room(static_cast<size_t>(length));
    Secret<kMaxCipherBlock> last;
    size_t size = 0;
    const int error = cipher_stream_end(*context, last.data(), size);
    if (error == 0 && size > static_cast<size_t>(room < 0 ? 0 : room) && size > 0)
        return err_short_room(size); // the context stands: the call may be repeated with more room
    StreamContext::wipe(memory);
    if (error != 0)
        return error;
    if (size > 0)
        memcpy(output, last.data(), size);
    length = static_cast<int>(size);
    return 0;
}

} // namespace

int CIPHER_Begin(void* lpContext, int nContextLen, int fEncrypt, const unsigned char* lpKey, int nKeyLen,
                 const unsigned char* lpIV, int nIVLen, const char* szAlgorithm, int nOptions) {
    CallFrame frame;
    if (const int error = StreamContext::prepare(lpContext, nContextLen))
        return frame.length(-error);
    if (const int error = cipher_stream_find(szAlgorithm))
        return frame.length(-error);
    if ((nOptions & ~ZUL_CIPHER_NO_PADDING) != 0)
        return frame.length(-err_unknown_option());
    if (StreamContext::is_query(lpContext, nContextLen))
        return int{StreamContext::kBytes};
    if (lpKey == nullptr || nKeyLen < 0 || nIVLen < 0 || (lpIV == nullptr && nIVLen > 0))
        return frame.length(-err_missing_argument());
    StreamContext context(ContextKind::cipher);
    if (const int error = cipher_stream_begin(
            *context, {szAlgorithm, lpKey, lpIV, static_cast<size_t>(nKeyLen), static_cast<size_t>(nIVLen),
                       fEncrypt != 0, (nOptions & ZUL_CIPHER_NO_PADDING) == 0}))
        return frame.length(-error);
    context.store(lpContext);
    return int{StreamContext::kBytes};
}

int CIPHER_Add(unsigned char* lpOutput, int nOutBytes, void* lpContext, const unsigned char* lpInput,
               int nInputLen) {
    CallFrame frame;
    int length = 0;
    const int error = add(lpOutput, nOutBytes, lpContext, lpInput, nInputLen, length);
    return frame.length(error != 0 ? -error : length);
}

int CIPHER_End(unsigned char* lpOutput, int nOutBytes, void* lpContext) {
    CallFrame frame;
    int length = 0;
    const int error = end(lpOutput, nOutBytes, lpContext, length);
    return frame.length(error != 0 ? -error : length);
}
