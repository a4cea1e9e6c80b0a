// PBKDF1, RFC 8018; the key derivation of PKCS #12, RFC 7292. PBKDF2 is in pbkdf2.cpp.
#include "pbe/kdf.h"

#include <algorithm>
#include <cstring>

#include "frame/memory.h"
#include "hash/digest.h"

namespace zul {

namespace {

// A SHA-1 digest in a block that is already padded, and the state that digests it.
struct Sha1Rehash {
    uint32_t state[5];
    uint8_t block[64];
};

void rehash_sha1(uint8_t digest[kSha1Size], uint32_t times) {
    Sha1Context empty;
    sha1_init(empty);
    Wiped<Sha1Rehash> work;
    std::memcpy(work->block, digest, kSha1Size);
    work->block[kSha1Size] = 0x80;
    work->block[63] = 8 * kSha1Size;
    for (; times != 0; times--) {
        std::memcpy(work->state, empty.state, sizeof work->state);
        sha1_compress(work->state, work->block, 1);
        for (size_t i = 0; i < 5; i++)
            store_word<std::endian::big>(work->block + 4 * i, work->state[i]);
    }
    std::memcpy(digest, work->block, kSha1Size);
}

// rehash replaces a digest by its digest, times times.
void rehash(uint8_t* digest, int hashAlg, uint32_t times) {
    if (hashAlg == kDigestSha1)
        return rehash_sha1(digest, times);
    const auto length = static_cast<size_t>(digest_length(hashAlg));
    DigestContext context; // digest_final wipes it
    for (; times != 0; times--) {
        digest_init(context, hashAlg);
        digest_update(context, digest, length);
        digest_final(context, digest);
    }
}

// fill_repeating fills a room with copies of bytes, the last one cut.
void fill_repeating(uint8_t* room, size_t size, const void* bytes, size_t length) {
    for (size_t at = 0; at < size; at += length)
        std::memcpy(room + at, bytes, std::min(length, size - at));
}

// add_plus_one adds b + 1 to a, both big-endian, without the carry out.
void add_plus_one(uint8_t* a, const uint8_t* b, size_t size) {
    unsigned carry = 1;
    for (size_t i = size; i-- > 0;) {
        carry += a[i] + b[i];
        a[i] = static_cast<uint8_t>(carry);
        carry >>= 8;
    }
}

} // namespace

void pbkdf1(uint8_t* out, size_t outLen, int hashAlg, const void* password, size_t passwordLen,
            const uint8_t* salt, size_t saltLen, uint32_t iterations) {
    Secret<kMaxDigestSize> digest;
    Wiped<DigestContext> context;
    digest_init(*context, hashAlg);
    digest_update(*context, password, passwordLen);
    digest_update(*context, salt, saltLen);
    digest_final(*context, digest.data());
    rehash(digest.data(), hashAlg, std::max(iterations, 1u) - 1);
    std::memcpy(out, digest.data(), outLen);
}

void pkcs12_kdf(uint8_t* out, size_t outLen, Pkcs12Purpose purpose, const void* password, size_t passwordLen,
                const uint8_t* salt, size_t saltLen, uint32_t iterations) {
    constexpr size_t kBlock = 64; // v of the standard
    const size_t saltRoom = (saltLen + kBlock - 1) / kBlock * kBlock;
    const size_t passwordRoom = (passwordLen + kBlock - 1) / kBlock * kBlock;
    SecretBuffer input(saltRoom + passwordRoom);
    fill_repeating(input.data(), saltRoom, salt, saltLen);
    fill_repeating(input.data() + saltRoom, passwordRoom, password, passwordLen);

    uint8_t diversifier[kBlock];
    std::memset(diversifier, static_cast<int>(purpose), kBlock);
    Secret<kSha1Size> digest;
    Secret<kBlock> addend;
    Wiped<Sha1Context> context;
    while (outLen != 0) {
        sha1_init(*context);
        sha1_update(*context, diversifier, kBlock);
        sha1_update(*context, input.data(), input.size());
        sha1_final(*context, digest.data());
        rehash_sha1(digest.data(), std::max(iterations, 1u) - 1);
        const size_t part = std::min(outLen, kSha1Size);
        std::memcpy(out, digest.data(), part);
        out += part;
        outLen -= part;
        if (outLen == 0)
            break;
        fill_repeating(addend.data(), kBlock, digest.data(), kSha1Size);
        for (size_t at = 0; at < input.size(); at += kBlock)
            add_plus_one(input.data() + at, addend.data(), kBlock);
    }
}

} // namespace zul
