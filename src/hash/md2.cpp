#include "hash/md2.h"

#include <algorithm>
#include <cstring>

#include "frame/wipe.h"

namespace zul {

namespace {

// A permutation of the bytes that the digits of pi decide.
constexpr uint8_t kPi[256] = {
    41,  46,  67,  201, 162, 216, 124, 1,   61,  54,  84,  161, 236, 240, 6,   19,  98,  167, 5,   243,
    192, 199, 115, 140, 152, 147, 43,  217, 188, 76,  130, 202, 30,  155, 87,  60,  253, 212, 224, 22,
    103, 66,  111, 24,  138, 23,  229, 18,  190, 78,  196, 214, 218, 158, 222, 73,  160, 251, 245, 142,
    187, 47,  238, 122, 169, 104, 121, 145, 21,  178, 7,   63,  148, 194, 16,  137, 11,  34,  95,  33,
    128, 127, 93,  154, 90,  144, 50,  39,  53,  62,  204, 231, 191, 247, 151, 3,   255, 25,  48,  179,
    72,  165, 181, 209, 215, 94,  146, 42,  172, 86,  170, 198, 79,  184, 56,  210, 150, 164, 125, 182,
    118, 252, 107, 226, 156, 116, 4,   241, 69,  157, 112, 89,  100, 113, 135, 32,  134, 91,  207, 101,
    230, 45,  168, 2,   27,  96,  37,  173, 174, 176, 185, 246, 28,  70,  97,  105, 52,  64,  126, 15,
    85,  71,  163, 35,  221, 81,  175, 58,  195, 92,  249, 206, 186, 197, 234, 38,  44,  83,  13,  110,
    133, 40,  132, 9,   211, 223, 205, 244, 65,  129, 77,  82,  106, 220, 55,  200, 108, 193, 171, 250,
    36,  225, 123, 8,   12,  189, 177, 74,  120, 136, 149, 139, 227, 99,  232, 109, 233, 203, 213, 254,
    59,  0,   29,  57,  242, 239, 183, 14,  102, 88,  208, 228, 166, 119, 114, 248, 235, 117, 75,  10,
    49,  68,  80,  180, 143, 237, 31,  26,  219, 153, 141, 51,  159, 17,  131, 20,
};

constexpr size_t kBlockSize = 16;

void compress(Md2Context& context, const uint8_t* block) {
    uint8_t* state = context.state;
    for (size_t i = 0; i < kBlockSize; i++) {
        state[kBlockSize + i] = block[i];
        state[2 * kBlockSize + i] = state[i] ^ block[i];
    }
    uint8_t t = 0;
    for (unsigned round = 0; round < 18; round++) {
        for (uint8_t& byte : context.state)
            t = byte ^= kPi[t];
        t = static_cast<uint8_t>(t + round);
    }
    uint8_t last = context.checksum[kBlockSize - 1];
    for (size_t i = 0; i < kBlockSize; i++)
        last = context.checksum[i] ^= kPi[block[i] ^ last];
}

} // namespace

void md2_init(Md2Context& context) {
    context = {};
}

void md2_update(Md2Context& context, const void* data, size_t size) {
    auto* bytes = static_cast<const uint8_t*>(data);
    while (size > 0) {
        if (context.filled == 0 && size >= kBlockSize) {
            compress(context, bytes);
            bytes += kBlockSize;
            size -= kBlockSize;
            continue;
        }
        const size_t part = std::min(size, kBlockSize - context.filled);
        memcpy(context.block + context.filled, bytes, part);
        context.filled += part;
        bytes += part;
        size -= part;
        if (context.filled == kBlockSize) {
            compress(context, context.block);
            context.filled = 0;
        }
    }
}

void md2_final(Md2Context& context, uint8_t digest[kMd2Size]) {
    const size_t padding = kBlockSize - context.filled;
    memset(context.block + context.filled, static_cast<int>(padding), padding);
    compress(context, context.block);
    uint8_t checksum[kBlockSize];
    memcpy(checksum, context.checksum, kBlockSize);
    compress(context, checksum);
    memcpy(digest, context.state, kMd2Size);
    wipe_bytes(checksum, sizeof checksum);
    wipe_object(context);
}

} // namespace zul
