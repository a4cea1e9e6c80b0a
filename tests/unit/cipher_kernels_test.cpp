#include "cipher/aes_kernels.h"
#include "cipher/block_cipher.h"
#include "cipher/tdes_kernels.h"
#include "frame/wipe.h"
#include "support/unit_test.h"

using namespace zul;

namespace {

constexpr const char* kModeNames[kCipherModes] = {"ECB", "CBC", "CFB", "OFB", "CTR"};

// At each level the features above it are hidden.
struct Level {
    const char* kernel;
    bool isAes;
    uint32_t needs, hides;
};

constexpr Level kLevels[] = {
#if ZUL_X86_64
    {"vaes512", true, kCpuAesni | kCpuVaes | kCpuAvx2 | kCpuAvx512, 0},
    {"vaes256", true, kCpuAesni | kCpuVaes | kCpuAvx2, kCpuAvx512},
    {"aesni", true, kCpuAesni | kCpuSsse3, kCpuVaes},
    {"avx512vbmi", false, kCpuAvx512Vbmi | kCpuAvx512 | kCpuAvx2, 0},
    {"avx512", false, kCpuAvx512 | kCpuAvx2, kCpuAvx512Vbmi},
    {"avx2", false, kCpuAvx2, kCpuAvx512},
    {"sse2", false, 0, kCpuAvx512 | kCpuAvx2},
#else
    {"portable", false, 0, 0},
#endif
    {"portable", true, 0, kCpuAesni},
};

class CipherKernels : public testing::TestWithParam<Level> {
  protected:
    void SetUp() override {
        cpu_mask_features(0);
        if (!cpu_has(GetParam().needs))
            GTEST_SKIP() << "not on this processor: " << GetParam().kernel;
        cpu_mask_features(GetParam().hides);
        ASSERT_STREQ(GetParam().isAes ? aes_kernel() : tdes_kernel(), GetParam().kernel);
    }
    void TearDown() override { cpu_mask_features(0); }

    const BlockCipher& cipher(size_t keyLength) const {
        return block_cipher(!GetParam().isAes ? CipherAlgorithm::tdea
                            : keyLength == 16 ? CipherAlgorithm::aes128
                            : keyLength == 24 ? CipherAlgorithm::aes192
                                              : CipherAlgorithm::aes256);
    }
};

} // namespace

TEST_P(CipherKernels, VectorsBothWays) {
    for (const auto& v : test::read_vectors(GetParam().isAes ? "cipher/aes.txt" : "cipher/tdes.txt")) {
        const Bytes plain = v.hex("Plaintext"), coded = v.hex("Ciphertext"), bytes = v.hex("Key");
        const BlockCipher& with = cipher(bytes.size());
        const Bytes start = v.has("IV") ? v.hex("IV") : Bytes(with.blockLength);
        const std::string name = v.text("Mode");
        const auto mode = std::find(std::begin(kModeNames), std::end(kModeNames), name) - kModeNames;
        ASSERT_LT(mode, 5);
        for (const bool encrypt : {true, false}) {
            Wiped<CipherSchedule> key;
            ASSERT_TRUE(with.setKey(*key, {bytes.data(), bytes.size(), 0}, !encrypt && mode <= 1));
            const Bytes &in = encrypt ? plain : coded, &expected = encrypt ? coded : plain;
            Bytes out(in.size()), iv = start;
            auto* crypt = encrypt ? with.modes[mode].encrypt : with.modes[mode].decrypt;
            crypt(*key, iv.data(), out.data(), in.data(), in.size() / with.blockLength);
            EXPECT_EQ(out, expected);
        }
    }
}

// One call must give what as many calls of a single block give (of AES by the portable code, which uses no
// instruction of the others): the same output, the same iv for the next call, in place or not, at any
// address, and nothing beyond the end.
TEST_P(CipherKernels, ManyBlocksAreLikeOneAfterTheOther) {
    // Around the kernels' widths, and of Triple DES the shortest input and rest that are worth a batch.
    std::vector<size_t> counts = {63, 64, 65, 80};
    for (size_t count = 0; count <= 40; count++)
        counts.push_back(count);
    if (!GetParam().isAes)
        counts.insert(counts.end(), {68,  127, 128, 129, 143, 144, 145, 255, 256, 257,  271,  272, 319,
                                     320, 321, 511, 512, 513, 527, 528, 529, 768, 1023, 1024, 1100});
    const size_t most = *std::max_element(counts.begin(), counts.end());
    for (const size_t keyLength : {16u, 24u, 32u}) {
        const BlockCipher& with = cipher(keyLength);
        if (with.keyLength != keyLength)
            continue;
        const size_t block = with.blockLength;
        const Bytes bytes = test::sequence(keyLength, 1), in = test::sequence(block * most, 2);
        const CipherKey cipherKey = {bytes.data(), keyLength, 0};
        Wiped<CipherSchedule> key, reference;
        ASSERT_TRUE(with.setKey(*key, cipherKey, true));
        cpu_mask_features(kCpuAesni);
        ASSERT_TRUE(with.setKey(*reference, cipherKey, true));
        // The counter carries, into its upper half or to zero, within the first batch.
        const Bytes start =
            test::from_hex(block == 8 ? "ffffffffffffffcd" : "7bfffffffffffffffffffffffffffffd");
        for (const auto& mode : with.modes) {
            for (auto* crypt : {mode.encrypt, mode.decrypt}) {
                SCOPED_TRACE(testing::Message() << kModeNames[&mode - with.modes] << " " << keyLength);
                cpu_mask_features(kCpuAesni);
                Bytes single(block * most), iv = start;
                std::vector<Bytes> ivAfter = {iv};
                for (size_t i = 0; i < most; i++) {
                    crypt(*reference, iv.data(), single.data() + block * i, in.data() + block * i, 1);
                    ivAfter.push_back(iv);
                }
                cpu_mask_features(GetParam().hides);
                for (const size_t blocks : counts) {
                    SCOPED_TRACE(blocks);
                    const auto length = static_cast<ptrdiff_t>(block * blocks);
                    Bytes expected(single.begin(), single.begin() + length);
                    expected.push_back(0x5A);
                    Bytes out(expected.size(), 0x5A);
                    iv = start;
                    crypt(*key, iv.data(), out.data(), in.data(), blocks);
                    EXPECT_TRUE(out == expected);
                    EXPECT_EQ(iv, ivAfter[blocks]);

                    Bytes shifted(expected.size() + 1, 0x5A); // at an odd address
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

INSTANTIATE_TEST_SUITE_P(All, CipherKernels, testing::ValuesIn(kLevels), [](const auto& level) {
    return std::string(level.param.isAes ? "aes_" : "tdes_") + level.param.kernel;
});

// The dispatch never chooses this kernel on x86-64.
TEST(TdesPortable, BatchIsLikeOneBlockAfterTheOther) {
    Wiped<TdesKey> key;
    tdes_set_key(*key, test::sequence(24, 3).data());
    Wiped<TdesBitKey> bits;
    tdes_bit_key(*bits, *key);
    const Bytes in = test::sequence(64 * 8, 4);
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
