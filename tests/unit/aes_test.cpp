#include <gtest/gtest.h>

#include "cipher/aes.h"
#include "cipher/aes_kernels.h"
#include "frame/wipe.h"
#include "support/vectors.h"

namespace zul {

namespace {

using Bytes = std::vector<uint8_t>;
using Crypt = void(const AesKey& key, uint8_t* iv, uint8_t* out, const uint8_t* in, size_t blocks);

void ecb_encrypt(const AesKey& key, uint8_t*, uint8_t* out, const uint8_t* in, size_t blocks) {
    aes_ecb_encrypt(key, out, in, blocks);
}

void ecb_decrypt(const AesKey& key, uint8_t*, uint8_t* out, const uint8_t* in, size_t blocks) {
    aes_ecb_decrypt(key, out, in, blocks);
}

struct Mode {
    const char* name;
    Crypt *encrypt, *decrypt;
};

constexpr Mode kModes[] = {
    {"ECB", ecb_encrypt, ecb_decrypt},
    {"CBC", aes_cbc_encrypt, aes_cbc_decrypt},
    {"CFB", aes_cfb_encrypt, aes_cfb_decrypt},
    {"OFB", aes_ofb, aes_ofb},
    {"CTR", aes_ctr, aes_ctr},
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

constexpr Level kLevels[] = {
#if ZUL_X86_64
    {"vaes512", kCpuAesni | kCpuVaes | kCpuAvx2 | kCpuAvx512, 0},
    {"vaes256", kCpuAesni | kCpuVaes | kCpuAvx2, kCpuAvx512},
    {"aesni", kCpuAesni | kCpuSsse3, kCpuVaes},
#endif
    {"portable", 0, kCpuAesni},
};

class Aes : public testing::TestWithParam<Level> {
  protected:
    void SetUp() override {
        cpu_mask_features(0);
        if (!cpu_has(GetParam().needs))
            GTEST_SKIP() << "not on this processor: " << GetParam().kernel;
        cpu_mask_features(GetParam().hides);
        ASSERT_STREQ(aes_kernel(), GetParam().kernel);
    }
    void TearDown() override { cpu_mask_features(0); }
};

} // namespace

TEST_P(Aes, ExamplesOfTheStandardsBothWays) {
    for (const auto& v : test::read_vectors("cipher/aes_standards.txt")) {
        SCOPED_TRACE(v.where());
        const Bytes plain = v.hex("Plaintext"), coded = v.hex("Ciphertext"), bytes = v.hex("Key");
        const Bytes start = v.has("IV") ? v.hex("IV") : Bytes(16);
        ASSERT_EQ(plain.size(), coded.size());
        Wiped<AesKey> both, encryptOnly;
        ASSERT_TRUE(aes_set_key(*both, bytes.data(), bytes.size()));
        ASSERT_TRUE(aes_set_encrypt_key(*encryptOnly, bytes.data(), bytes.size()));
        bool known = false;
        for (const Mode& mode : kModes) {
            if (v.text("Mode") != mode.name)
                continue;
            known = true;
            Bytes out(plain.size()), iv = start;
            mode.encrypt(*encryptOnly, iv.data(), out.data(), plain.data(), plain.size() / 16);
            EXPECT_EQ(out, coded);
            iv = start;
            mode.decrypt(*both, iv.data(), out.data(), coded.data(), coded.size() / 16);
            EXPECT_EQ(out, plain);
        }
        EXPECT_TRUE(known);
    }
}

// The portable code, which uses no instruction of the others, is the measure: round keys, output and the iv
// for the next call, in place or not, at any address, and nothing beyond the end.
TEST_P(Aes, EveryBlockCountIsLikePortable) {
    constexpr size_t kMost = 80; // more than two of the widest batches
    const Bytes in = scrambled(16 * kMost, 2);
    for (const size_t keyLength : {16u, 24u, 32u}) {
        const Bytes bytes = scrambled(keyLength, 1);
        Wiped<AesKey> key, reference;
        ASSERT_TRUE(aes_set_key(*key, bytes.data(), keyLength));
        cpu_mask_features(kCpuAesni);
        ASSERT_STREQ(aes_kernel(), "portable");
        ASSERT_TRUE(aes_set_key(*reference, bytes.data(), keyLength));
        cpu_mask_features(GetParam().hides);
        ASSERT_EQ(key->rounds, reference->rounds);
        for (size_t round = 0; round <= key->rounds; round++) {
            EXPECT_EQ(test::to_hex(key->encrypt[round], 16), test::to_hex(reference->encrypt[round], 16));
            EXPECT_EQ(test::to_hex(key->decrypt[round], 16), test::to_hex(reference->decrypt[round], 16));
        }
        // The counter carries into its upper half within the first batch.
        const Bytes start = test::from_hex("7bfffffffffffffffffffffffffffffd");
        for (const Mode& mode : kModes) {
            for (Crypt* crypt : {mode.encrypt, mode.decrypt}) {
                SCOPED_TRACE(std::string(mode.name) + (crypt == mode.encrypt ? " encrypt" : " decrypt"));
                cpu_mask_features(kCpuAesni);
                Bytes single(16 * kMost), iv = start;
                std::vector<Bytes> ivAfter = {iv};
                for (size_t i = 0; i < kMost; i++) {
                    crypt(*reference, iv.data(), single.data() + 16 * i, in.data() + 16 * i, 1);
                    ivAfter.push_back(iv);
                }
                cpu_mask_features(GetParam().hides);
                for (size_t blocks = 0; blocks <= kMost; blocks += blocks < 40 ? 1 : 13) {
                    SCOPED_TRACE(blocks);
                    const auto length = static_cast<ptrdiff_t>(16 * blocks);
                    Bytes expected(single.begin(), single.begin() + length);
                    expected.push_back(0x5A);
                    Bytes out(16 * blocks + 1, 0x5A);
                    iv = start;
                    crypt(*key, iv.data(), out.data(), in.data(), blocks);
                    EXPECT_TRUE(out == expected);
                    EXPECT_EQ(iv, ivAfter[blocks]);

                    Bytes shifted(16 * blocks + 2, 0x5A); // at an odd address
                    std::copy(in.begin(), in.begin() + length, shifted.begin() + 1);
                    iv = start;
                    crypt(*key, iv.data(), shifted.data() + 1, shifted.data() + 1, blocks);
                    shifted.erase(shifted.begin());
                    EXPECT_TRUE(shifted == expected);
                    EXPECT_EQ(iv, ivAfter[blocks]);
                }
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Kernels, Aes, testing::ValuesIn(kLevels),
                         [](const auto& level) { return std::string(level.param.kernel); });

TEST(AesKeyLength, OtherLengthsAreRefused) {
    Wiped<AesKey> key;
    key->rounds = 77;
    const Bytes bytes(40);
    for (size_t length = 0; length <= bytes.size(); length++) {
        if (length == 16 || length == 24 || length == 32)
            continue;
        EXPECT_FALSE(aes_set_key(*key, bytes.data(), length)) << length;
        EXPECT_FALSE(aes_set_encrypt_key(*key, bytes.data(), length)) << length;
    }
    EXPECT_EQ(key->rounds, 77u);
}

} // namespace zul
