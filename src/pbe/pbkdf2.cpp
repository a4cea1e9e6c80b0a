// PBKDF2, RFC 8018, section 5.2.
#include <algorithm>
#include <cstring>

#include "frame/memory.h"
#include "hash/hmac.h"
#include "pbe/kdf.h"

namespace zul {

namespace {

// PbkdfSum runs the later rounds of one output block: in each it replaces u by its MAC and adds that to sum.
using PbkdfSum = void(const HmacContext& key, uint8_t* sum, uint8_t* u, uint32_t rounds);

// sum_by_blocks is for the SHA family. The message is one MAC, so that each half of HMAC is one block after a
// pad that is absorbed already. The padding of that block is written once, and an update by a whole block is
// just the compression function.
template<class Context, Context DigestContext::*member, void (*update)(Context&, const void*, size_t),
         size_t digestSize>
void sum_by_blocks(const HmacContext& key, uint8_t* sum, uint8_t* u, uint32_t rounds) {
    using Word = typename Context::Word;
    constexpr size_t kBlock = Context::kBlockSize;
    constexpr size_t kWords = digestSize / sizeof(Word);
    struct Work {
        Context context;
        uint8_t block[kBlock];
        Word sum[kWords];
        uint8_t bytes[sizeof(Word)];
    };
    Wiped<Work> work;
    std::memcpy(work->block, u, digestSize);
    work->block[digestSize] = 0x80;
    store_word<std::endian::big>(work->block + kBlock - sizeof(Word),
                                 static_cast<Word>(8 * (kBlock + digestSize)));

    for (; rounds != 0; rounds--) {
        for (const DigestContext* pad : {&key.inner, &key.outer}) {
            std::memcpy(work->context.state, (pad->*member).state, sizeof work->context.state);
            update(work->context, work->block, kBlock);
            for (size_t i = 0; i < kWords; i++)
                store_word<std::endian::big>(work->block + sizeof(Word) * i, work->context.state[i]);
        }
        for (size_t i = 0; i < kWords; i++)
            work->sum[i] ^= work->context.state[i];
    }
    for (size_t i = 0; i < kWords; i++) {
        store_word<std::endian::big>(work->bytes, work->sum[i]);
        for (size_t j = 0; j < sizeof work->bytes; j++)
            sum[sizeof(Word) * i + j] ^= work->bytes[j];
    }
}

void sum_by_messages(const HmacContext& key, uint8_t* sum, uint8_t* u, uint32_t rounds) {
    const size_t length = digest_length(key.inner.algorithm);
    Wiped<HmacContext> mac;
    for (; rounds != 0; rounds--) {
        *mac = key;
        hmac_update(*mac, u, length);
        hmac_final(*mac, u);
        for (size_t i = 0; i < length; i++)
            sum[i] ^= u[i];
    }
}

// How deep the kernels of the rounds leave words of the key's state.
constexpr size_t kKernelDepth = size_t{12} * 1024;

PbkdfSum* sum_for(int hashAlg) {
    switch (hashAlg) {
    case kDigestSha1:
        return sum_by_blocks<Sha1Context, &DigestContext::sha1, sha1_update, kSha1Size>;
    case kDigestSha256:
        return sum_by_blocks<Sha256Context, &DigestContext::sha256, sha256_update, kSha256Size>;
    case kDigestSha384:
        return sum_by_blocks<Sha512Context, &DigestContext::sha512, sha512_update, kSha384Size>;
    case kDigestSha512:
        return sum_by_blocks<Sha512Context, &DigestContext::sha512, sha512_update, kSha512Size>;
    default:
        return sum_by_messages;
    }
}

} // namespace

void pbkdf2(uint8_t* out, size_t outLen, int hashAlg, const void* password, size_t passwordLen,
            const uint8_t* salt, size_t saltLen, uint32_t iterations) {
    Wiped<HmacContext> key, mac;
    hmac_init(*key, hashAlg, password, passwordLen);
    PbkdfSum* const sumRounds = sum_for(hashAlg);
    Secret<kMaxDigestSize> u, sum;
    for (uint32_t index = 1; outLen != 0; index++) {
        uint8_t indexBytes[4];
        store_word<std::endian::big>(indexBytes, index);
        *mac = *key;
        hmac_update(*mac, salt, saltLen);
        hmac_update(*mac, indexBytes, sizeof indexBytes);
        const auto length = static_cast<size_t>(hmac_final(*mac, u.data()));
        std::memcpy(sum.data(), u.data(), length);
        sumRounds(*key, sum.data(), u.data(), std::max(iterations, 1u) - 1);
        const size_t part = std::min(outLen, length);
        std::memcpy(out, sum.data(), part);
        out += part;
        outLen -= part;
    }
    wipe_dead_stack(kKernelDepth);
}

} // namespace zul
