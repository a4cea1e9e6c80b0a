#include "pbe/scrypt.h"

#include <bit>
#include <utility>

#include "frame/err.h"
#include "frame/memory.h"
#include "hash/digest.h"
#include "pbe/kdf.h"
#include "pbe/scrypt_block_mix.h"
#include "zulcore.h"

namespace zul {

void scrypt_block_mix_portable(uint32_t* out, const uint32_t* in, const uint32_t* other, size_t r) {
    scrypt_mix_blocks<ScryptRotate>(out, in, other, r);
}

namespace {

ScryptBlockMix* block_mix() {
#if ZUL_X86_64
    if (scrypt_has_avx512())
        return scrypt_block_mix_avx512;
    if (scrypt_has_avx2())
        return scrypt_block_mix_avx2;
#endif
    return scrypt_block_mix_portable;
}

constexpr size_t kBlock = 16; // words
constexpr size_t kLine = 16;  // words that one prefetch brings

// rom_mix is scryptROMix over one part of 128 r bytes. table has room for n parts, scratch for two.
void rom_mix(ScryptBlockMix* mix, uint8_t* part, uint32_t* table, uint32_t* scratch, size_t n, size_t r) {
    const size_t words = 2 * kBlock * r;
    for (size_t i = 0; i < words; i++)
        table[i] = load_word<uint32_t, std::endian::little>(
            part + 4 * (i / kBlock * kBlock + kScryptOrder[i % kBlock]));
    uint32_t *x = scratch, *y = scratch + words;
    for (size_t i = 1; i < n; i++)
        mix(table + i * words, table + (i - 1) * words, nullptr, r);
    mix(x, table + (n - 1) * words, nullptr, r);
    for (size_t i = 0; i < n; i++) {
        const uint32_t* chosen = table + (x[words - kBlock] & (n - 1)) * words; // n is at most 2^24
        for (size_t at = 0; at < words; at += kLine)
            __builtin_prefetch(chosen + at);
        mix(y, x, chosen, r);
        std::swap(x, y);
    }
    for (size_t i = 0; i < words; i++)
        store_word<std::endian::little>(part + 4 * (i / kBlock * kBlock + kScryptOrder[i % kBlock]), x[i]);
}

} // namespace

int scrypt_check(const ScryptCost& cost) {
    constexpr uint64_t kMostMemory = uint64_t{4} << 30, kMostParts = uint64_t{1} << 30,
                       kMostWork = uint64_t{64} << 30;
    const auto [n, r, p] = cost;
    if (n < 2 || !std::has_single_bit(n) || r < 1 || p < 1)
        return err_fail(OUT_OF_RANGE_ERROR, "scrypt: N must be a power of 2 above 1, r and p at least 1");
    if (r < 4 && n >> (16 * r) != 0)
        return err_fail(OUT_OF_RANGE_ERROR, "scrypt: N must be below 2^(16 r)");
    // Each bound keeps the next product in range.
    if (n > kMostMemory || r > kMostMemory || 128 * r > kMostMemory / n)
        return err_fail(OUT_OF_RANGE_ERROR, "scrypt: 128 N r must be at most 4 GiB");
    if (p > kMostParts / (128 * r) || p > kMostWork / (128 * r * n))
        return err_fail(OUT_OF_RANGE_ERROR, "scrypt: 128 r p must be at most 1 GiB, 128 N r p 64 GiB");
    return 0;
}

int scrypt_check_file(const ScryptCost& cost) {
    constexpr uint64_t kMostMemory = uint64_t{1} << 30, kMostWork = uint64_t{4} << 30;
    if (const int code = scrypt_check(cost))
        return code;
    const uint64_t memory = 128 * cost.n * cost.r;
    return memory <= kMostMemory && cost.p <= kMostWork / memory
               ? 0
               : err_fail(OUT_OF_RANGE_ERROR, "scrypt: 128 N r must be at most 1 GiB, 128 N r p 4 GiB");
}

int scrypt(uint8_t* out, size_t outLen, const void* password, size_t passwordLen, const uint8_t* salt,
           size_t saltLen, const ScryptCost& cost) {
    if (const int code = scrypt_check(cost))
        return code;
    const size_t part = 128 * static_cast<size_t>(cost.r);
    SecretPages pages((cost.n + 2 + cost.p) * part);
    auto* table = static_cast<uint32_t*>(pages.data());
    if (table == nullptr)
        return err_fail(MEMORY_ERROR, "scrypt: not enough memory");
    uint32_t* const scratch = table + cost.n * part / sizeof(uint32_t);
    auto* const parts = reinterpret_cast<uint8_t*>(scratch) + 2 * part;

    pbkdf2(parts, cost.p * part, kDigestSha256, password, passwordLen, salt, saltLen, 1);
    for (size_t i = 0; i < cost.p; i++)
        rom_mix(block_mix(), parts + i * part, table, scratch, cost.n, cost.r);
    wipe_dead_stack();
    pbkdf2(out, outLen, kDigestSha256, password, passwordLen, parts, cost.p * part, 1);
    return 0;
}

} // namespace zul
