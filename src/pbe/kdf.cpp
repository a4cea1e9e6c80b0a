// PBKDF1, RFC 8018; the key derivation of PKCS #12, RFC 7292. PBKDF2 is in pbkdf2.cpp.
#include "pbe/kdf.h"

#include <algorithm>
#include <cstring>

#include "hash/digest.h"

namespace zul {

namespace {

// rehash_blocks is rehash for the SHA family. The digest stands in a block that is padded already, so that an
// update by the whole block is just the compression function.
template<class Context, void (*init)(Context&), void (*update)(Context&, const void*, size_t),
         size_t digestSize>
void rehash_blocks(uint8_t* digest, uint32_t times) {
    using Word = typename Context::Word;
    constexpr size_t kBlock = Context::kBlockSize;
    struct Work {
        Context context;
        uint8_t block[kBlock];
    };
    Context empty;
    init(empty);
    Wiped<Work> work;
    work->context = empty;
    std::memcpy(work->block, digest, digestSize);
    work->block[digestSize] = 0x80;
    store_word<std::endian::big>(work->block + kBlock - sizeof(Word), static_cast<Word>(8 * digestSize));
    for (; times != 0; times--) {
        std::memcpy(work->context.state, empty.state, sizeof empty.state);
        update(work->context, work->block, kBlock);
        for (size_t i = 0; i < digestSize / sizeof(Word); i++)
            store_word<std::endian::big>(work->block + sizeof(Word) * i, work->context.state[i]);
    }
    std::memcpy(digest, work->block, digestSize);
}

// rehash replaces a digest by its digest, times times.
void rehash(uint8_t* digest, int hashAlg, uint32_t times) {
    switch (hashAlg) {
    case kDigestSha1:
        return rehash_blocks<Sha1Context, sha1_init, sha1_update, kSha1Size>(digest, times);
    case kDigestSha256:
        return rehash_blocks<Sha256Context, sha256_init, sha256_update, kSha256Size>(digest, times);
    case kDigestSha384:
        return rehash_blocks<Sha512Context, sha384_init, sha512_update, kSha384Size>(digest, times);
    case kDigestSha512:
        return rehash_blocks<Sha512Context, sha512_init, sha512_update, kSha512Size>(digest, times);
    default:
        break;
    }
    const size_t length = digest_length(hashAlg);
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

void pkcs12_kdf(uint8_t* out, size_t outLen, int hashAlg, Pkcs12Purpose purpose, const void* password,
                size_t passwordLen, const uint8_t* salt, size_t saltLen, uint32_t iterations) {
    const size_t digestSize = digest_length(hashAlg); // u of the standard
    const size_t block = digest_block_size(hashAlg);  // v
    const size_t saltRoom = (saltLen + block - 1) / block * block;
    const size_t passwordRoom = (passwordLen + block - 1) / block * block;
    SecretBuffer input(saltRoom + passwordRoom);
    fill_repeating(input.data(), saltRoom, salt, saltLen);
    fill_repeating(input.data() + saltRoom, passwordRoom, password, passwordLen);

    uint8_t diversifier[kMaxDigestBlockSize];
    std::memset(diversifier, static_cast<int>(purpose), block);
    Secret<kMaxDigestSize> digest;
    Secret<kMaxDigestBlockSize> addend;
    Wiped<DigestContext> context;
    while (outLen != 0) {
        digest_init(*context, hashAlg);
        digest_update(*context, diversifier, block);
        digest_update(*context, input.data(), input.size());
        digest_final(*context, digest.data());
        rehash(digest.data(), hashAlg, std::max(iterations, 1u) - 1);
        const size_t part = std::min(outLen, digestSize);
        std::memcpy(out, digest.data(), part);
        out += part;
        outLen -= part;
        if (outLen == 0)
            break;
        fill_repeating(addend.data(), block, digest.data(), digestSize);
        for (size_t at = 0; at < input.size(); at += block)
            add_plus_one(input.data() + at, addend.data(), block);
    }
}

SecretBuffer pkcs12_password(const void* password, size_t passwordLen) {
    SecretBuffer wide(2 * passwordLen + 2);
    for (size_t i = 0; i < passwordLen; i++)
        wide[2 * i + 1] = static_cast<const uint8_t*>(password)[i];
    return wide;
}

} // namespace zul
