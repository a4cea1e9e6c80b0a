#include "hash/md5.h"

#include <bit>

#include "frame/wipe.h"
#include "platform/target.h"

namespace zul {

namespace {

// One operation of the given round (0 to 3). The one before it has made b, the others are older: everything
// that does not need b comes first. The terms of G have no bit in common, so that one of them can be added
// ahead, too.
template<int Round>
ZUL_ALWAYS_INLINE void step(uint32_t& a, uint32_t b, uint32_t c, uint32_t d, uint32_t input,
                            uint32_t constant, int amount) {
    a += input + constant;
    if constexpr (Round == 0) {
        a += d ^ (b & (c ^ d));
    } else if constexpr (Round == 1) {
        a += c & ~d;
        keep_order(a);
        a += b & d;
    } else if constexpr (Round == 2) {
        a += b ^ (c ^ d);
    } else {
        a += c ^ (b | ~d);
    }
    a = b + std::rotl(a, amount);
}

struct Variables {
    uint32_t a, b, c, d;
};

template<int Round>
ZUL_ALWAYS_INLINE void four_steps(Variables& v, const uint8_t* block, int first,
                                  const uint32_t (&constants)[4]) {
    constexpr int kAmounts[4][4] = {{7, 12, 17, 22}, {5, 9, 14, 20}, {4, 11, 16, 23}, {6, 10, 15, 21}};
    constexpr int kFactor[4] = {1, 5, 3, 7}, kOffset[4] = {0, 1, 5, 0};
    const auto& s = kAmounts[Round];
    auto word = [&](int i) __attribute__((always_inline)) {
        return load_word<uint32_t, std::endian::little>(
            block + ptrdiff_t{4} * ((kFactor[Round] * (first + i) + kOffset[Round]) % 16));
    };
    step<Round>(v.a, v.b, v.c, v.d, word(0), constants[0], s[0]);
    step<Round>(v.d, v.a, v.b, v.c, word(1), constants[1], s[1]);
    step<Round>(v.c, v.d, v.a, v.b, word(2), constants[2], s[2]);
    step<Round>(v.b, v.c, v.d, v.a, word(3), constants[3], s[3]);
}

void compress(uint32_t state[4], const uint8_t* data, size_t blocks) {
    for (; blocks > 0; blocks--, data += 64) {
        Variables v{state[0], state[1], state[2], state[3]};
        four_steps<0>(v, data, 0, {0xd76aa478, 0xe8c7b756, 0x242070db, 0xc1bdceee});
        four_steps<0>(v, data, 4, {0xf57c0faf, 0x4787c62a, 0xa8304613, 0xfd469501});
        four_steps<0>(v, data, 8, {0x698098d8, 0x8b44f7af, 0xffff5bb1, 0x895cd7be});
        four_steps<0>(v, data, 12, {0x6b901122, 0xfd987193, 0xa679438e, 0x49b40821});
        four_steps<1>(v, data, 0, {0xf61e2562, 0xc040b340, 0x265e5a51, 0xe9b6c7aa});
        four_steps<1>(v, data, 4, {0xd62f105d, 0x02441453, 0xd8a1e681, 0xe7d3fbc8});
        four_steps<1>(v, data, 8, {0x21e1cde6, 0xc33707d6, 0xf4d50d87, 0x455a14ed});
        four_steps<1>(v, data, 12, {0xa9e3e905, 0xfcefa3f8, 0x676f02d9, 0x8d2a4c8a});
        four_steps<2>(v, data, 0, {0xfffa3942, 0x8771f681, 0x6d9d6122, 0xfde5380c});
        four_steps<2>(v, data, 4, {0xa4beea44, 0x4bdecfa9, 0xf6bb4b60, 0xbebfbc70});
        four_steps<2>(v, data, 8, {0x289b7ec6, 0xeaa127fa, 0xd4ef3085, 0x04881d05});
        four_steps<2>(v, data, 12, {0xd9d4d039, 0xe6db99e5, 0x1fa27cf8, 0xc4ac5665});
        four_steps<3>(v, data, 0, {0xf4292244, 0x432aff97, 0xab9423a7, 0xfc93a039});
        four_steps<3>(v, data, 4, {0x655b59c3, 0x8f0ccc92, 0xffeff47d, 0x85845dd1});
        four_steps<3>(v, data, 8, {0x6fa87e4f, 0xfe2ce6e0, 0xa3014314, 0x4e0811a1});
        four_steps<3>(v, data, 12, {0xf7537e82, 0xbd3af235, 0x2ad7d2bb, 0xeb86d391});
        add_words(state, v.a, v.b, v.c, v.d);
    }
}

} // namespace

void md5_init(Md5Context& context) {
    constexpr uint32_t kState[4] = {0x67452301, 0xefcdab89, 0x98badcfe, 0x10325476};
    memcpy(context.state, kState, sizeof kState);
    context.length = 0;
}

void md5_update(Md5Context& context, const void* data, size_t size) {
    block_digest_update(context, data, size, compress);
}

void md5_final(Md5Context& context, uint8_t digest[kMd5Size]) {
    block_digest_pad<std::endian::little>(context, compress);
    for (size_t i = 0; i < 4; i++)
        store_word<std::endian::little>(digest + 4 * i, context.state[i]);
    wipe_object(context);
}

} // namespace zul
