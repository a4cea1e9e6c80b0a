// Triple DES (TDEA), SP 800-67, and its modes, SP 800-38A. Modes that know many input blocks at once give
// them to a kernel; what is left over, and modes that go block after block, use des_core.h.
#include "cipher/tdes.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "cipher/des_core.h"
#include "cipher/tdes_kernels.h"
#include "frame/wipe.h"

namespace zul {

static_assert(sizeof(TdesKey::words) == 3 * kDesScheduleWords * sizeof(uint64_t));

namespace {

const TdesKernel& kernel() {
#if ZUL_X86_64
    if (tdes_avx512_usable())
        return kTdesAvx512;
    if (tdes_avx2_usable())
        return kTdesAvx2;
    return kTdesSse2;
#else
    return kTdesPortable;
#endif
}

// next_kernel chooses for so many blocks; null where one block after the other takes less time. Bit slices
// need less for a block, byte permutations less for a batch.
const TdesKernel* next_kernel(size_t blocks) {
    const TdesKernel* with = &kernel();
#if ZUL_X86_64
    if (tdes_vbmi_usable() && blocks < kTdesVbmiMost)
        with = &kTdesVbmi;
#endif
    return blocks >= with->least ? with : nullptr;
}

// --- one block -----------------------------------------------------------------------------------------

DesHalves encrypt(const TdesKey& key, DesHalves block) {
    block = des_pass<1>(block, key.words);
    block = des_pass<1>(block, key.words + kDesScheduleWords);
    return des_pass<1>(block, key.words + 2 * kDesScheduleWords);
}

DesHalves decrypt(const TdesKey& key, DesHalves block) {
    const uint64_t* last = key.words + 3 * kDesScheduleWords - 1;
    block = des_pass<-1>(block, last);
    block = des_pass<-1>(block, last - kDesScheduleWords);
    return des_pass<-1>(block, last - 2 * kDesScheduleWords);
}

uint64_t load_counter(const uint8_t* block) {
    return static_cast<uint64_t>(des_load_word(block)) << 32 | des_load_word(block + 4);
}

void store_counter(uint8_t* block, uint64_t counter) {
    des_store_word(block, static_cast<uint32_t>(counter >> 32));
    des_store_word(block + 4, static_cast<uint32_t>(counter));
}

// --- many blocks ---------------------------------------------------------------------------------------

struct Scratch {
    TdesBitKey bits;
    uint64_t space[kTdesMaxLanes + 8];
};

// in_batches runs as many leading blocks as kernels pay for and returns how many they ran.
// before(batch, in, n) fills a batch with what the cipher is to read, after(out, in, batch, n) uses the
// outcome.
template<class Before, class After>
size_t in_batches(const TdesKey& key, bool decrypts, uint8_t* out, const uint8_t* in, size_t blocks,
                  Before before, After after) {
    const TdesKernel* with = next_kernel(blocks);
    if (with == nullptr)
        return 0;
    Scratch scratch;
    // The stack of a caller on Windows is aligned to 16 bytes only.
    const size_t misaligned = reinterpret_cast<uintptr_t>(scratch.space) % 64 / 8;
    uint64_t* batch = scratch.space + (8 - misaligned) % 8;
    size_t done = 0, most = 0;
    for (const TdesKernel* prepared = nullptr; with != nullptr; with = next_kernel(blocks - done)) {
        if (with != prepared)
            with->set_key(scratch.bits, key);
        prepared = with;
        const size_t now = std::min(blocks - done, with->lanes);
        most = std::max(most, with->lanes);
        const size_t at = done * kDesBlock;
        before(batch, in + at, now);
        if (now < with->lanes)
            std::memset(batch + now, 0, (with->lanes - now) * kDesBlock);
        with->crypt(scratch.bits, decrypts, batch);
        after(out + at, in + at, batch, now);
        done += now;
    }
    wipe_bytes(&scratch.bits, sizeof scratch.bits);
    wipe_bytes(batch, most * kDesBlock);
    return done;
}

void copy_in(uint64_t* batch, const uint8_t* in, size_t now) {
    std::memcpy(batch, in, now * kDesBlock);
}

void copy_out(uint8_t* out, const uint8_t*, const uint64_t* batch, size_t now) {
    std::memcpy(out, batch, now * kDesBlock);
}

void add_out(uint8_t* out, const uint8_t* in, const uint64_t* batch, size_t now) {
    for (size_t i = 0; i < now; i++) {
        uint64_t word;
        std::memcpy(&word, in + 8 * i, 8);
        word ^= batch[i];
        std::memcpy(out + 8 * i, &word, 8);
    }
}

} // namespace

const char* tdes_kernel() {
#if ZUL_X86_64
    if (tdes_vbmi_usable())
        return kTdesVbmi.name;
#endif
    return kernel().name;
}

void tdes_bit_key(TdesBitKey& bits, const TdesKey& key) {
    for (size_t i = 0; i < 24; i++) {
        for (unsigned b = 0; b < 8; b++) {
            // cppcheck-suppress uninitvar ; the place is taken, nothing there is read
            uint64_t* mask = bits.masks[i / 8][8 * (i % 8) + b];
            mask[0] = mask[1] = 0 - static_cast<uint64_t>(key.bytes[i] >> b & 1);
        }
    }
}

void tdes_set_key(TdesKey& key, const uint8_t* bytes) {
    des_schedule(key.words, bytes);
    // Encryption decrypts with the second key.
    uint64_t* second = key.words + kDesScheduleWords;
    des_schedule(second, bytes + 8);
    for (size_t i = 0; i < kDesScheduleWords / 2; i++)
        std::swap(second[i], second[kDesScheduleWords - 1 - i]);
    des_schedule(key.words + 2 * kDesScheduleWords, bytes + 16);
    std::memcpy(key.bytes, bytes, sizeof key.bytes);
}

void tdes_ecb_encrypt(const TdesKey& key, uint8_t* out, const uint8_t* in, size_t blocks) {
    const size_t done = in_batches(key, false, out, in, blocks, copy_in, copy_out);
    for (size_t at = done * kDesBlock; at < blocks * kDesBlock; at += kDesBlock)
        des_store(out + at, encrypt(key, des_load(in + at)));
}

void tdes_ecb_decrypt(const TdesKey& key, uint8_t* out, const uint8_t* in, size_t blocks) {
    const size_t done = in_batches(key, true, out, in, blocks, copy_in, copy_out);
    for (size_t at = done * kDesBlock; at < blocks * kDesBlock; at += kDesBlock)
        des_store(out + at, decrypt(key, des_load(in + at)));
}

void tdes_cbc_encrypt(const TdesKey& key, uint8_t* iv, uint8_t* out, const uint8_t* in, size_t blocks) {
    DesHalves chain = des_load(iv);
    for (size_t at = 0; at < blocks * kDesBlock; at += kDesBlock) {
        chain = encrypt(key, chain ^ des_load(in + at));
        des_store(out + at, chain);
    }
    des_store(iv, chain);
}

void tdes_cbc_decrypt(const TdesKey& key, uint8_t* iv, uint8_t* out, const uint8_t* in, size_t blocks) {
    // A ciphertext block is read before its place is written, as out may be in.
    const auto unchain = [iv](uint8_t* to, const uint8_t* from, const uint64_t* batch, size_t now) {
        uint64_t before, word;
        std::memcpy(&before, iv, 8);
        for (size_t i = 0; i < now; i++) {
            std::memcpy(&word, from + 8 * i, 8);
            before ^= batch[i];
            std::memcpy(to + 8 * i, &before, 8);
            before = word;
        }
        std::memcpy(iv, &before, 8);
    };
    const size_t done = in_batches(key, true, out, in, blocks, copy_in, unchain);
    DesHalves chain = des_load(iv);
    for (size_t at = done * kDesBlock; at < blocks * kDesBlock; at += kDesBlock) {
        const DesHalves block = des_load(in + at);
        des_store(out + at, chain ^ decrypt(key, block));
        chain = block;
    }
    des_store(iv, chain);
}

void tdes_cfb_encrypt(const TdesKey& key, uint8_t* iv, uint8_t* out, const uint8_t* in, size_t blocks) {
    DesHalves chain = des_load(iv);
    for (size_t at = 0; at < blocks * kDesBlock; at += kDesBlock) {
        chain = encrypt(key, chain) ^ des_load(in + at);
        des_store(out + at, chain);
    }
    des_store(iv, chain);
}

void tdes_cfb_decrypt(const TdesKey& key, uint8_t* iv, uint8_t* out, const uint8_t* in, size_t blocks) {
    const auto shifted = [iv](uint64_t* batch, const uint8_t* from, size_t now) {
        std::memcpy(batch, iv, 8);
        std::memcpy(batch + 1, from, (now - 1) * kDesBlock);
        std::memcpy(iv, from + (now - 1) * kDesBlock, 8);
    };
    const size_t done = in_batches(key, false, out, in, blocks, shifted, add_out);
    DesHalves chain = des_load(iv);
    for (size_t at = done * kDesBlock; at < blocks * kDesBlock; at += kDesBlock) {
        const DesHalves block = des_load(in + at);
        des_store(out + at, encrypt(key, chain) ^ block);
        chain = block;
    }
    des_store(iv, chain);
}

void tdes_ofb(const TdesKey& key, uint8_t* iv, uint8_t* out, const uint8_t* in, size_t blocks) {
    DesHalves chain = des_load(iv);
    for (size_t at = 0; at < blocks * kDesBlock; at += kDesBlock) {
        chain = encrypt(key, chain);
        des_store(out + at, chain ^ des_load(in + at));
    }
    des_store(iv, chain);
}

void tdes_ctr(const TdesKey& key, uint8_t* iv, uint8_t* out, const uint8_t* in, size_t blocks) {
    uint64_t counter = load_counter(iv);
    const auto count = [&counter](uint64_t* batch, const uint8_t*, size_t now) {
        for (size_t i = 0; i < now; i++)
            batch[i] = __builtin_bswap64(counter++); // a batch is of little-endian words
    };
    const size_t done = in_batches(key, false, out, in, blocks, count, add_out);
    for (size_t at = done * kDesBlock; at < blocks * kDesBlock; at += kDesBlock) {
        store_counter(iv, counter++);
        des_store(out + at, encrypt(key, des_load(iv)) ^ des_load(in + at));
    }
    store_counter(iv, counter);
}

} // namespace zul
