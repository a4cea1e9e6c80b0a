#include "hash/sha3.h"

#include "frame/wipe.h"
#include "hash/keccak.h"

namespace zul {
namespace {

constexpr size_t kStateBytes = 200;
constexpr uint8_t kSha3Suffix = 0x06, kShakeSuffix = 0x1F, kLastBit = 0x80;

void init(Sha3Context& context, uint32_t digestSize, uint32_t strength, uint8_t suffix) {
    context = {};
    context.rate = static_cast<uint32_t>(kStateBytes) - 2 * strength;
    context.digestSize = digestSize;
    context.suffix = suffix;
}

bool has_bmi() {
#if ZUL_X86_64
    return cpu_has(kCpuAvx2);
#else
    return false;
#endif
}

void absorb(Sha3Context& context, const uint8_t* data, size_t rate, size_t blocks) {
#if ZUL_X86_64
    if (has_bmi()) {
        keccak_absorb_bmi(context.lanes, data, rate, blocks);
        return;
    }
#endif
    keccak_absorb_here(context.lanes, data, rate, blocks);
}

void permute(Sha3Context& context) {
    absorb(context, nullptr, 0, 1);
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
        add_byte(context, context.position, *bytes);
        bytes++;
        size--;
        if (++context.position == context.rate) {
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
    for (size_t i = 0; i < size; i++) {
        if (context.position == context.rate) {
            permute(context);
            context.position = 0;
        }
        out[i] = static_cast<uint8_t>(context.lanes[context.position / 8] >> 8 * (context.position % 8));
        context.position++;
    }
}

void sha3_final(Sha3Context& context, uint8_t* digest) {
    sha3_squeeze(context, digest, context.digestSize);
    wipe_object(context);
}

const char* sha3_kernel() {
    return has_bmi() ? "bmi" : "portable";
}

} // namespace zul
