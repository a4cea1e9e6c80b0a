#include "cipher/chacha20.h"

#include <cstring>

#include "cipher/chacha20_kernels.h"
#include "frame/wipe.h"

namespace zul {
namespace {

uint32_t load(const uint8_t* bytes) {
    return static_cast<uint32_t>(bytes[0]) | static_cast<uint32_t>(bytes[1]) << 8 |
           static_cast<uint32_t>(bytes[2]) << 16 | static_cast<uint32_t>(bytes[3]) << 24;
}

struct State {
    uint32_t words[16];
    uint32_t x[16];
    uint8_t stream[kChaChaBlock];
};

void portable_block(State& s) {
    memcpy(s.x, s.words, sizeof s.x);
    for (int i = 0; i < 10; i++)
        chacha_double_round(s.x, [](uint32_t a, int bits) { return a << bits | a >> (32 - bits); });
    for (size_t i = 0; i < 16; i++) {
        const uint32_t word = s.x[i] + s.words[i];
        for (size_t j = 0; j < 4; j++)
            s.stream[4 * i + j] = static_cast<uint8_t>(word >> 8 * j);
    }
}

struct Kernel {
    ChaChaKernel* run; // null if there is none
    size_t blocks;     // in a group
};

Kernel wide_kernel() {
#if ZUL_X86_64
    if (cpu_has(kCpuAvx512))
        return {chacha20_avx512, kChaChaAvx512Blocks};
    if (cpu_has(kCpuAvx2))
        return {chacha20_avx2, kChaChaAvx2Blocks};
#endif
    return {};
}

ChaChaKernel* narrow_kernel() {
#if ZUL_X86_64
    if (cpu_has(kCpuSsse3))
        return chacha20_ssse3;
#endif
    return nullptr;
}

void add_stream(uint8_t* out, const uint8_t* in, size_t size, const uint8_t* stream) {
    for (size_t i = 0; i < size; i++)
        out[i] = in[i] ^ stream[i];
}

} // namespace

void chacha20(uint8_t* out, const uint8_t* in, size_t size, const uint8_t* key, const uint8_t* nonce,
              uint32_t block) {
    Wiped<State> owner;
    State& s = *owner;
    constexpr uint32_t kConstants[4] = {0x61707865, 0x3320646E, 0x79622D32, 0x6B206574}; // "expand 32-byte k"
    memcpy(s.words, kConstants, sizeof kConstants);
    for (size_t i = 0; i < 8; i++)
        s.words[4 + i] = load(key + 4 * i);
    s.words[12] = block;
    for (size_t i = 0; i < 3; i++)
        s.words[13 + i] = load(nonce + 4 * i);
    const auto run = [&](ChaChaKernel* kernel) {
        const size_t done = kernel(out, in, size, s.words);
        s.words[12] += static_cast<uint32_t>(done / kChaChaBlock);
        out += done;
        in += done;
        size -= done;
    };
    if (const Kernel wide = wide_kernel(); wide.run != nullptr) {
        run(wide.run);
        // A whole group takes less time than two single blocks.
        if (size > kChaChaBlock) {
            Secret<kChaChaAvx512Blocks * kChaChaBlock> stream;
            wide.run(stream.data(), stream.data(), wide.blocks * kChaChaBlock, s.words);
            add_stream(out, in, size, stream.data());
            return;
        }
    }
    ChaChaKernel* const narrow = narrow_kernel();
    if (narrow != nullptr)
        run(narrow);
    while (size > 0) {
        const size_t part = size < kChaChaBlock ? size : kChaChaBlock;
        if (narrow != nullptr) {
            memset(s.stream, 0, sizeof s.stream);
            narrow(s.stream, s.stream, sizeof s.stream, s.words);
        } else {
            portable_block(s);
        }
        s.words[12]++;
        add_stream(out, in, part, s.stream);
        out += part;
        in += part;
        size -= part;
    }
}

const char* chacha20_kernel() {
#if ZUL_X86_64
    if (wide_kernel().run != nullptr)
        return wide_kernel().run == chacha20_avx512 ? "avx512" : "avx2";
    if (narrow_kernel() != nullptr)
        return "ssse3";
#endif
    return "portable";
}

} // namespace zul
