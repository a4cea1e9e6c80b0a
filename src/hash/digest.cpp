#include "hash/digest.h"

#include <cstring>
#include <iterator>

#include "frame/file_stream.h"
#include "hash/digest_output.h"

namespace zul {

namespace {

// The functions of one algorithm over its own member of the context.
template<auto Member, auto Init>
void init_member(DigestContext& context) {
    Init(context.*Member);
}

template<auto Member, auto Update>
void update_member(DigestContext& context, const void* data, size_t size) {
    Update(context.*Member, data, size);
}

template<auto Member, auto Final>
void final_member(DigestContext& context, uint8_t* digest) {
    Final(context.*Member, digest);
}

template<auto Member, auto Init, auto Update, auto Final>
constexpr DigestDescriptor describe(int algorithm, const char* name, const char* rsaSignature, size_t size,
                                    size_t blockSize, bool hasHmac = true, bool isExtendable = false) {
    return {algorithm,
            name,
            rsaSignature,
            size,
            blockSize,
            hasHmac,
            isExtendable,
            init_member<Member, Init>,
            update_member<Member, Update>,
            final_member<Member, Final>};
}

constexpr auto kSha1 = &DigestContext::sha1;
constexpr auto kMd5 = &DigestContext::md5;
constexpr auto kMd2 = &DigestContext::md2;
constexpr auto kSha256 = &DigestContext::sha256;
constexpr auto kSha512 = &DigestContext::sha512;
constexpr auto kSha3 = &DigestContext::sha3;

template<auto Init>
constexpr DigestDescriptor sha3(int algorithm, size_t strength, size_t size, bool isExtendable = false) {
    return describe<kSha3, Init, sha3_update, sha3_final>(algorithm, nullptr, nullptr, size,
                                                          200 - 2 * strength, !isExtendable, isExtendable);
}

// A digest stands at the place of its number.
constexpr DigestDescriptor kDigests[] = {
    describe<kSha1, sha1_init, sha1_update, sha1_final>(kDigestSha1, "sha1", "sha1WithRSAEncryption",
                                                        kSha1Size, Sha1Context::kBlockSize),
    describe<kMd5, md5_init, md5_update, md5_final>(kDigestMd5, "md5", "md5WithRSAEncryption", kMd5Size,
                                                    Md5Context::kBlockSize),
    describe<kMd2, md2_init, md2_update, md2_final>(kDigestMd2, "md2", "md2WithRSAEncryption", kMd2Size,
                                                    kMd2BlockSize, false),
    describe<kSha256, sha256_init, sha256_update, sha256_final>(
        kDigestSha256, "sha256", "sha256WithRSAEncryption", kSha256Size, Sha256Context::kBlockSize),
    describe<kSha512, sha384_init, sha512_update, sha512_final>(
        kDigestSha384, "sha384", "sha384WithRSAEncryption", kSha384Size, Sha512Context::kBlockSize),
    describe<kSha512, sha512_init, sha512_update, sha512_final>(
        kDigestSha512, "sha512", "sha512WithRSAEncryption", kSha512Size, Sha512Context::kBlockSize),
    describe<kSha256, sha224_init, sha256_update, sha256_final>(
        kDigestSha224, "sha224", "sha224WithRSAEncryption", kSha224Size, Sha256Context::kBlockSize),
    describe<kSha1, sha1_init, sha1_update, sha1_final>(kDigestSha1Rng, nullptr, nullptr, kSha1Size,
                                                        Sha1Context::kBlockSize),
};

constexpr DigestDescriptor kNamedDigests[] = {
    describe<kSha512, sha512_256_init, sha512_update, sha512_final>(
        kDigestSha512_256, nullptr, nullptr, kSha512_256Size, Sha512Context::kBlockSize),
    sha3<sha3_224_init>(kDigestSha3_224, 28, 28),
    sha3<sha3_256_init>(kDigestSha3_256, 32, 32),
    sha3<sha3_384_init>(kDigestSha3_384, 48, 48),
    sha3<sha3_512_init>(kDigestSha3_512, 64, 64),
    sha3<shake128_init>(kDigestShake128, 16, 32, true),
    sha3<shake256_init>(kDigestShake256, 32, 64, true),
};

constexpr bool in_order(const DigestDescriptor* digests, size_t count, int number) {
    for (size_t i = 0; i < count; i++)
        if (digests[i].algorithm != number++)
            return false;
    return true;
}
static_assert(in_order(kDigests, std::size(kDigests), 0));
static_assert(in_order(kNamedDigests, std::size(kNamedDigests), kDigestSha512_256));

} // namespace

const DigestDescriptor* digest_find(int algorithm) {
    const auto number = static_cast<size_t>(algorithm);
    if (number < std::size(kDigests))
        return &kDigests[number];
    return number - kDigestSha512_256 < std::size(kNamedDigests) ? &kNamedDigests[number - kDigestSha512_256]
                                                                 : nullptr;
}

const DigestDescriptor* digest_named(const char* name) {
    for (const DigestDescriptor& digest : kDigests)
        if (digest.name != nullptr && strcmp(digest.name, name) == 0)
            return &digest;
    return nullptr;
}

size_t digest_length(int algorithm) {
    const DigestDescriptor* digest = digest_find(algorithm);
    return digest == nullptr ? 0 : digest->size;
}

size_t digest_block_size(int algorithm) {
    const DigestDescriptor* digest = digest_find(algorithm);
    return digest == nullptr ? 0 : digest->blockSize;
}

void digest_init(DigestContext& context, int algorithm) {
    context.algorithm = algorithm;
    digest_find(algorithm)->init(context);
}

void digest_update(DigestContext& context, const void* data, size_t size) {
    digest_find(context.algorithm)->update(context, data, size);
}

int digest_final(DigestContext& context, uint8_t* digest) {
    const DigestDescriptor* algorithm = digest_find(context.algorithm);
    algorithm->final(context, digest);
    return static_cast<int>(algorithm->size);
}

int hash_bytes(uint8_t* out, int outMax, const void* data, int64_t length, int algorithm) {
    if (length < 0)
        return -BAD_PARAM_ERROR;
    const DigestDescriptor* const digest = digest_find(algorithm);
    if (digest == nullptr)
        return -BAD_FLAG_ERROR;
    const auto digestLength = static_cast<int>(digest->size);
    if (out == nullptr || outMax < 1)
        return digestLength;
    DigestContext context;
    digest->init(context);
    digest->update(context, data, static_cast<size_t>(length));
    if (outMax >= digestLength) {
        digest->final(context, out);
        return digestLength;
    }
    Secret<kMaxDigestSize> whole;
    digest->final(context, whole.data());
    return digest_result(out, outMax, whole.data(), digestLength);
}

// Large enough for kernels that process several blocks at once.
static constexpr size_t kFileChunk = size_t{16} * 1024;

int hash_file(uint8_t* out, int outMax, const char* path, int options) {
    FileReader file(path, (options & ZUL_HASH_MODE_TEXT) != 0);
    if (!file.is_open())
        return -OPEN_ERROR;
    const int algorithm = options & kDigestAlgorithmMask;
    const auto digestLength = static_cast<int>(digest_length(algorithm));
    if (digestLength == 0)
        return -BAD_FLAG_ERROR;
    if (out == nullptr || outMax < 1)
        return digestLength;
    DigestContext context;
    digest_init(context, algorithm);
    Secret<kFileChunk> chunk;
    size_t size;
    do {
        size = file.read(chunk.data(), chunk.size());
        digest_update(context, chunk.data(), size);
    } while (size == chunk.size());
    Secret<kMaxDigestSize> digest;
    return digest_result(out, outMax, digest.data(), digest_final(context, digest.data()));
}

} // namespace zul
