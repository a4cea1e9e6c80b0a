#include "hash/sha3.h"

#include <algorithm>
#include <bit>

#include "frame/wipe.h"
#include "hash/digest_words.h"
#include "hash/keccak.h"

namespace zul {
namespace {

constexpr size_t kStateBytes = 200, kLaneBytes = 8;
constexpr uint8_t kSha3Suffix = 0x06, kShakeSuffix = 0x1F, kLastBit = 0x80;

void init(Sha3Context& context, uint32_t digestSize, uint32_t strength, uint8_t suffix) {
    context = {};
    context.rate = static_cast<uint32_t>(kStateBytes) - 2 * strength;
    context.digestSize = digestSize;
    context.suffix = suffix;
}

#if ZUL_X86_64
bool has_bmi() {
    return cpu_has(kCpuAvx2);
}
bool has_avx512() {
    return cpu_has(kCpuAvx2 | kCpuAvx512);
}
#endif

void absorb(Sha3Context& context, const uint8_t* data, size_t rate, size_t blocks) {
#if ZUL_X86_64
    if (has_avx512()) {
        keccak_absorb_avx512(context.lanes, data, rate, blocks);
        wipe_dead_stack(128); // compilers keep some of the lanes there
        return;
    }
    if (has_bmi())
        return keccak_absorb_bmi(context.lanes, data, rate, blocks);
#endif
    keccak_absorb_here(context.lanes, data, rate, blocks);
}

void permute(Sha3Context& context) {
    absorb(context, nullptr, 0, 1);
}

// add_bytes adds a piece of a block, whose bytes from position on it has.
void add_bytes(Sha3Context& context, size_t position, const uint8_t* bytes, size_t size) {
    while (size > 0) {
        uint64_t& lane = context.lanes[position / kLaneBytes];
        const size_t shift = position % kLaneBytes, part = std::min(size, kLaneBytes - shift);
        if (part == kLaneBytes) {
            lane ^= load_word<uint64_t, std::endian::little>(bytes);
        } else {
            for (size_t i = 0; i < part; i++)
                lane ^= static_cast<uint64_t>(bytes[i]) << 8 * (shift + i);
        }
        position += part;
        bytes += part;
        size -= part;
    }
}

// give_bytes gives a piece of a block.
void give_bytes(const Sha3Context& context, size_t position, uint8_t* out, size_t size) {
    while (size > 0) {
        const uint64_t lane = context.lanes[position / kLaneBytes];
        const size_t shift = position % kLaneBytes, part = std::min(size, kLaneBytes - shift);
        if (part == kLaneBytes) {
            store_word<std::endian::little>(out, lane);
        } else {
            for (size_t i = 0; i < part; i++)
                out[i] = static_cast<uint8_t>(lane >> 8 * (shift + i));
        }
        position += part;
        out += part;
        size -= part;
    }
}

void add_byte(Sha3Context& context, size_t position, uint8_t byte) {
    context.lanes[position / 8] ^= static_cast<uint64_t>(byte) << 8 * (position % 8);
}

} // namespace

void sha3_224_init(Sha3Context& context) {
    init(context, 28, 28, kSha3Suffix);
}
void sha3_256_init(Sha3Context& context) {
    init(context, 32, 32, kSha3Suffix);
}
void sha3_384_init(Sha3Context& context) {
    init(context, 48, 48, kSha3Suffix);
}
void sha3_512_init(Sha3Context& context) {
    init(context, 64, 64, kSha3Suffix);
}
void shake128_init(Sha3Context& context) {
    init(context, 32, 16, kShakeSuffix);
}
void shake256_init(Sha3Context& context) {
    init(context, 64, 32, kShakeSuffix);
}

void sha3_update(Sha3Context& context, const void* data, size_t size) {
    const auto* bytes = static_cast<const uint8_t*>(data);
    while (size > 0) {
        if (context.position == 0 && size >= context.rate) {
            const size_t blocks = size / context.rate;
            absorb(context, bytes, context.rate, blocks);
            bytes += blocks * context.rate;
            size -= blocks * context.rate;
            continue;
        }
        const size_t part = std::min<size_t>(size, context.rate - context.position);
        add_bytes(context, context.position, bytes, part);
        bytes += part;
        size -= part;
        context.position += static_cast<uint32_t>(part);
        if (context.position == context.rate) {
            permute(context);
            context.position = 0;
        }
    }
}

void sha3_squeeze(Sha3Context& context, uint8_t* out, size_t size) {
    if (!context.isSqueezing) {
        add_byte(context, context.position, context.suffix);
        add_byte(context, context.rate - 1, kLastBit);
        context.isSqueezing = true;
        context.position = context.rate;
    }
    while (size > 0) {
        if (context.position == context.rate) {
            permute(context);
            context.position = 0;
        }
        const size_t part = std::min<size_t>(size, context.rate - context.position);
        give_bytes(context, context.position, out, part);
        out += part;
        size -= part;
        context.position += static_cast<uint32_t>(part);
    }
}

void sha3_final(Sha3Context& context, uint8_t* digest) {
    sha3_squeeze(context, digest, context.digestSize);
    wipe_object(context);
}

const char* sha3_kernel() {
#if ZUL_X86_64
    if (has_avx512())
        return "avx512";
    if (has_bmi())
        return "bmi";
#endif
    return "portable";
}

} // namespace zul
