#include <map>

#include "hash/digest.h"
#include "hash/sha1_kernels.h"
#include "hash/sha256_kernels.h"
#include "hash/sha512_kernels.h"
#include "platform/cpu.h"
#include "support/unit_test.h"

using namespace zul;

namespace {

// What each digest should run on when the features are hidden, on a processor that has the needed ones.
struct Level {
    uint32_t needed, hidden;
    const char *sha1, *sha256, *sha512;
};

constexpr Level kLevels[] = {
    {kCpuShani | kCpuSsse3 | kCpuAvx2 | kCpuAvx512, 0, "sha-ni", "sha-ni", "avx512"},
    {kCpuShani | kCpuSsse3 | kCpuAvx2, kCpuAvx512, "sha-ni", "sha-ni", "avx2"},
    {kCpuAvx2, kCpuShani | kCpuAvx512, "avx2", "avx2", "avx2"},
    {0, kCpuShani | kCpuAvx2, "portable", "portable", "portable"},
};

// The tests of this fixture run once for each level, and each proves which kernels it has run.
class HashKernels : public testing::TestWithParam<Level> {
  protected:
    void SetUp() override {
        if (!cpu_has(GetParam().needed))
            GTEST_SKIP() << "this processor does not have it";
        cpu_mask_features(GetParam().hidden);
        ASSERT_STREQ(sha1_kernel(), GetParam().sha1);
        ASSERT_STREQ(sha256_kernel(), GetParam().sha256);
        ASSERT_STREQ(sha512_kernel(), GetParam().sha512);
    }
    void TearDown() override { cpu_mask_features(0); }
};

std::string digest_hex(const void* data, size_t size, int algorithm) {
    uint8_t digest[kMaxDigestSize];
    const int length = hash_bytes(digest, kMaxDigestSize, data, static_cast<int64_t>(size), algorithm);
    return length < 0 ? "error" : test::to_hex(digest, static_cast<size_t>(length));
}

// Calls a kernel itself, whatever the dispatcher would choose.
template<class Word, size_t StateWords>
void expect_same_as_portable(void (*kernel)(Word*, const uint8_t*, size_t),
                             void (*portable)(Word*, const uint8_t*, size_t)) {
    const Bytes data = test::sequence(16 * sizeof(Word) * 27 + 1);
    for (size_t blocks = 0; blocks <= 27; blocks++) {
        Word expected[StateWords], state[StateWords];
        for (size_t i = 0; i < StateWords; i++)
            expected[i] = state[i] = static_cast<Word>(0x9e3779b97f4a7c15u * (blocks + i + 1));
        portable(expected, data.data() + 1, blocks);
        kernel(state, data.data() + 1, blocks);
        EXPECT_TRUE(std::equal(state, state + StateWords, expected)) << blocks << " blocks";
    }
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Levels, HashKernels, testing::ValuesIn(kLevels),
                         [](const auto& level) { return "Hidden" + std::to_string(level.param.hidden); });

TEST_P(HashKernels, MeetOpensslAroundBlocksAndGroups) {
    const std::multimap<std::string, int> algorithms = {
        {"MD5", kDigestMd5},        {"SHA-1", kDigestSha1},     {"SHA-1", kDigestSha1Rng},
        {"SHA-224", kDigestSha224}, {"SHA-256", kDigestSha256}, {"SHA-384", kDigestSha384},
        {"SHA-512", kDigestSha512}};
    for (const auto& v : test::read_vectors("hash/long_openssl.txt")) {
        const Bytes message = test::sequence(static_cast<size_t>(v.number("Length")));
        for (const auto& [name, algorithm] : algorithms)
            EXPECT_EQ(digest_hex(message.data(), message.size(), algorithm), v.text(name)) << name;
    }
}

TEST_P(HashKernels, GiveTheSameForEverySplit) {
    const Bytes message = test::sequence(1500);
    for (int algorithm = 0; algorithm < 8; algorithm++) {
        const size_t block = digest_block_size(algorithm);
        // Two cuts: every first part to beyond two blocks, second parts below, at and above one and ten
        // blocks.
        for (size_t first = 0; first <= 2 * block + 1; first++) {
            for (const size_t second : {size_t{0}, size_t{1}, block - 1, block, block + 1, 10 * block}) {
                const size_t total = std::min(first + second + 3, message.size());
                const size_t middle = std::min(second, total - first);
                DigestContext context;
                digest_init(context, algorithm);
                digest_update(context, message.data(), first);
                digest_update(context, message.data() + first, middle);
                digest_update(context, message.data() + first + middle, total - first - middle);
                uint8_t digest[kMaxDigestSize];
                const auto length = static_cast<size_t>(digest_final(context, digest));
                ASSERT_EQ(test::to_hex(digest, length), digest_hex(message.data(), total, algorithm))
                    << algorithm << ": " << first << ", " << middle << " of " << total;
            }
        }
    }
}

#if ZUL_X86_64
TEST(HashKernelFunctions, EqualThePortableOnes) {
    if (sha1_has_shani())
        expect_same_as_portable<uint32_t, 5>(sha1_compress_shani, sha1_compress_portable);
    if (sha1_has_avx2())
        expect_same_as_portable<uint32_t, 5>(sha1_compress_avx2, sha1_compress_portable);
    if (sha256_has_shani())
        expect_same_as_portable<uint32_t, 8>(sha256_compress_shani, sha256_compress_portable);
    if (sha256_has_avx2())
        expect_same_as_portable<uint32_t, 8>(sha256_compress_avx2, sha256_compress_portable);
    if (sha512_has_avx2())
        expect_same_as_portable<uint64_t, 8>(sha512_compress_avx2, sha512_compress_portable);
    if (sha512_has_avx512())
        expect_same_as_portable<uint64_t, 8>(sha512_compress_avx512, sha512_compress_portable);
}
#endif

TEST(HashNumbers, OutsideTheTableAreRefused) {
    uint8_t digest[kMaxDigestSize];
    for (const int algorithm : {-1, 8}) {
        EXPECT_EQ(digest_length(algorithm), 0U);
        EXPECT_EQ(digest_block_size(algorithm), 0U);
        EXPECT_EQ(hash_bytes(digest, 64, "", 0, algorithm), -BAD_FLAG_ERROR);
        EXPECT_EQ(hash_bytes(digest, 64, "", -1, algorithm), -BAD_PARAM_ERROR);
    }
}
