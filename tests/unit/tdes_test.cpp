#include <cstring>
#include <gtest/gtest.h>

#include "cipher/tdes.h"
#include "cipher/tdes_kernels.h"
#include "frame/wipe.h"
#include "support/vectors.h"

namespace zul {

namespace {

using Bytes = std::vector<uint8_t>;
using Crypt = void(const TdesKey& key, uint8_t* iv, uint8_t* out, const uint8_t* in, size_t blocks);

void ecb_encrypt(const TdesKey& key, uint8_t*, uint8_t* out, const uint8_t* in, size_t blocks) {
    tdes_ecb_encrypt(key, out, in, blocks);
}

void ecb_decrypt(const TdesKey& key, uint8_t*, uint8_t* out, const uint8_t* in, size_t blocks) {
    tdes_ecb_decrypt(key, out, in, blocks);
}

struct Mode {
    const char* name;
    Crypt *encrypt, *decrypt;
};

constexpr Mode kModes[] = {
    {"ECB", ecb_encrypt, ecb_decrypt},
    {"CBC", tdes_cbc_encrypt, tdes_cbc_decrypt},
    {"CFB", tdes_cfb_encrypt, tdes_cfb_decrypt},
    {"OFB", tdes_ofb, tdes_ofb},
    {"CTR", tdes_ctr, tdes_ctr},
};

// Numbers without meaning, the same in each run.
Bytes scrambled(size_t size, uint32_t seed) {
    Bytes out(size);
    for (auto& byte : out) {
        seed = seed * 1664525 + 1013904223;
        byte = static_cast<uint8_t>(seed >> 24);
    }
    return out;
}

// At each level the features above it are hidden.
struct Level {
    const char* kernel;
    uint32_t needs, hides;
};

#if ZUL_X86_64
constexpr Level kLevels[] = {
    {"avx512", kCpuAvx512 | kCpuAvx2, 0}, {"avx2", kCpuAvx2, kCpuAvx512}, {"sse2", 0, kCpuAvx512 | kCpuAvx2}};
#else
constexpr Level kLevels[] = {{"portable", 0, 0}};
#endif

class Tdes : public testing::TestWithParam<Level> {
  protected:
    void SetUp() override {
        cpu_mask_features(0);
        if (!cpu_has(GetParam().needs))
            GTEST_SKIP() << "not on this processor: " << GetParam().kernel;
        cpu_mask_features(GetParam().hides);
        ASSERT_STREQ(tdes_kernel(), GetParam().kernel);
    }
    void TearDown() override { cpu_mask_features(0); }
};

} // namespace

TEST_P(Tdes, VectorsBothWays) {
    for (const auto& v : test::read_vectors("cipher/tdes.txt")) {
        SCOPED_TRACE(v.where());
        const Bytes plain = v.hex("Plaintext"), coded = v.hex("Ciphertext");
        const Bytes start = v.has("IV") ? v.hex("IV") : Bytes(8);
        ASSERT_EQ(plain.size(), coded.size());
        Wiped<TdesKey> key;
        tdes_set_key(*key, v.hex("Key").data());
        for (const Mode& mode : kModes) {
            if (v.text("Mode") != mode.name)
                continue;
            Bytes out(plain.size()), iv = start;
            mode.encrypt(*key, iv.data(), out.data(), plain.data(), plain.size() / 8);
            EXPECT_EQ(out, coded);
            iv = start;
            mode.decrypt(*key, iv.data(), out.data(), coded.data(), coded.size() / 8);
            EXPECT_EQ(out, plain);
        }
    }
}

// One call must give what as many calls of a single block give, which use no kernel: the same output, the
// same iv for the next call, in place or not, and nothing beyond the end.
TEST_P(Tdes, ManyBlocksAreLikeOneAfterTheOther) {
    constexpr size_t kMost = 1100;
    // Around the kernels' widths and the shortest input and the shortest rest that are worth a batch.
    constexpr size_t kCounts[] = {0,   1,   2,   15,  16,  17,  63,  64,   65,   127,
                                  128, 129, 143, 144, 145, 255, 256, 257,  271,  272,
                                  511, 512, 513, 527, 528, 529, 768, 1023, 1024, 1100};
    Wiped<TdesKey> key;
    tdes_set_key(*key, scrambled(24, 1).data());
    const Bytes in = scrambled(8 * kMost + 1, 2);
    // The counter wraps within the first batch.
    const Bytes start = test::from_hex("ffffffffffffffcd");
    for (const Mode& mode : kModes) {
        for (Crypt* crypt : {mode.encrypt, mode.decrypt}) {
            SCOPED_TRACE(mode.name);
            Bytes single(8 * kMost), iv = start;
            std::vector<Bytes> ivAfter = {iv};
            for (size_t i = 0; i < kMost; i++) {
                crypt(*key, iv.data(), single.data() + 8 * i, in.data() + 8 * i, 1);
                ivAfter.push_back(iv);
            }
            for (const size_t blocks : kCounts) {
                SCOPED_TRACE(blocks);
                Bytes expected(single.begin(), single.begin() + static_cast<ptrdiff_t>(8 * blocks));
                expected.push_back(0x5A);
                Bytes out(8 * blocks + 1, 0x5A);
                iv = start;
                crypt(*key, iv.data(), out.data(), in.data(), blocks);
                EXPECT_TRUE(out == expected);
                EXPECT_EQ(iv, ivAfter[blocks]);

                Bytes shifted(8 * blocks + 2, 0x5A); // at an odd address
                std::copy(in.begin(), in.begin() + static_cast<ptrdiff_t>(8 * blocks), shifted.begin() + 1);
                iv = start;
                crypt(*key, iv.data(), shifted.data() + 1, shifted.data() + 1, blocks);
                shifted.erase(shifted.begin());
                EXPECT_TRUE(shifted == expected);
                EXPECT_EQ(iv, ivAfter[blocks]);
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Kernels, Tdes, testing::ValuesIn(kLevels),
                         [](const auto& level) { return std::string(level.param.kernel); });

// The dispatch never chooses this kernel on x86-64.
TEST(TdesPortable, BatchIsLikeOneBlockAfterTheOther) {
    Wiped<TdesKey> key;
    tdes_set_key(*key, scrambled(24, 3).data());
    Wiped<TdesBitKey> bits;
    tdes_bit_key(*bits, *key);
    const Bytes in = scrambled(64 * 8, 4);
    for (const bool decrypt : {false, true}) {
        uint64_t batch[64];
        memcpy(batch, in.data(), sizeof batch);
        kTdesPortable.crypt(*bits, decrypt, batch);
        Bytes expected(in.size()), out(in.size());
        for (size_t i = 0; i < 64; i++)
            (decrypt ? tdes_ecb_decrypt : tdes_ecb_encrypt)(*key, expected.data() + 8 * i, in.data() + 8 * i,
                                                            1);
        memcpy(out.data(), batch, sizeof batch);
        EXPECT_EQ(out, expected);
    }
}

} // namespace zul
