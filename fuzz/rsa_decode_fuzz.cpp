#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "zulcore.h"

// The input is four bytes of options, lowest first, and a block. A decoded message fits into the block and is
// cut to the room; where encodings are unique it encodes to the block again. A refused block leaves the
// output untouched.

using Bytes = std::vector<unsigned char>;

static void require(bool claim) {
    if (!claim)
        std::abort();
}

static void require_same_block(const Bytes& message, const unsigned char* block, int size, int options) {
    Bytes again(static_cast<size_t>(size));
    require(RSA_EncodeMsg(again.data(), size, message.data(), static_cast<int>(message.size()), options) ==
            0);
    require(memcmp(again.data(), block, again.size()) == 0);
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t inputSize) {
    if (inputSize < 4 || inputSize > 4096)
        return 0;
    const int options = static_cast<int>(uint32_t{data[0]} | uint32_t{data[1]} << 8 |
                                         uint32_t{data[2]} << 16 | uint32_t{data[3]} << 24);
    const unsigned char* const block = data + 4;
    const auto size = static_cast<int>(inputSize - 4);
    const int length = RSA_DecodeMsg(nullptr, 0, block, size, options);
    Bytes out(inputSize, 0x5A);
    require(RSA_DecodeMsg(out.data(), size + 1, block, size, options) == length);
    if (length < 0) {
        require(out == Bytes(inputSize, 0x5A));
        return 0;
    }
    require(length <= size);
    const bool iso9796 = (options & ZUL_EMSIG_ISO9796) != 0;
    const bool signature = !iso9796 && (options & 0xF0) == ZUL_EMSIG_PKCSV1_5;
    if (signature && (options & ZUL_EMSIG_GETALG) != 0)
        return 0;
    const Bytes message(out.begin(), out.begin() + length);
    Bytes half(message.size() / 2 + 1, 0x5A);
    if (length > 1) {
        require(RSA_DecodeMsg(half.data(), length / 2, block, size, options) == length);
        require(memcmp(half.data(), message.data(), message.size() / 2) == 0 && half.back() == 0x5A);
    }
    if (iso9796)
        require_same_block(message, block, size, options);
    if (signature && (options & ZUL_EMSIG_DIGINFO) == 0 && block[9] == 0xFF) {
        const int algorithm = RSA_DecodeMsg(nullptr, 0, block, size, ZUL_EMSIG_PKCSV1_5 | ZUL_EMSIG_GETALG);
        require_same_block(message, block, size, ZUL_EMSIG_PKCSV1_5 | ZUL_EMSIG_DIGESTONLY | algorithm);
    }
    return 0;
}
