#include <gtest/gtest.h>

#include "cipher/cipher_context.h"
#include "platform/cpu.h"
#include "support/vectors.h"
#include "zulcore.h"

namespace zul {

namespace {

using Bytes = std::vector<uint8_t>;

constexpr CipherAlgorithm kAlgorithms[] = {CipherAlgorithm::tdea, CipherAlgorithm::aes128,
                                           CipherAlgorithm::aes192, CipherAlgorithm::aes256};
constexpr CipherMode kModes[] = {CipherMode::ecb, CipherMode::cbc, CipherMode::cfb, CipherMode::ofb,
                                 CipherMode::ctr};
constexpr const char* kModeNames[] = {"ECB", "CBC", "CFB", "OFB", "CTR"}; // by internal number

bool whole_blocks_only(CipherMode mode) {
    return mode == CipherMode::ecb || mode == CipherMode::cbc;
}

// One message in parts of the given length, the last of them what remains.
void expect_in_parts(CipherContext& context, size_t partLength, const Bytes& in, const Bytes& expected) {
    Bytes out = in; // in place
    for (size_t at = 0; at < out.size(); at += partLength) {
        const size_t length = std::min(partLength, out.size() - at);
        ASSERT_EQ(context.update(out.data() + at, out.data() + at, length), 0);
    }
    EXPECT_EQ(out, expected) << "in parts of " << partLength;
}

void check_vectors(const char* file, size_t block) {
    for (const auto& v : test::read_vectors(file)) {
        SCOPED_TRACE(v.where());
        const Bytes plain = v.hex("Plaintext"), coded = v.hex("Ciphertext"), key = v.hex("Key");
        const Bytes iv = v.has("IV") ? v.hex("IV") : Bytes();
        const std::string name = v.text("Mode");
        const auto number = std::find(std::begin(kModeNames), std::end(kModeNames), name) - kModeNames;
        ASSERT_LT(number, 5);
        const auto mode = static_cast<CipherMode>(number);
        const auto algorithm = block == 8         ? CipherAlgorithm::tdea
                               : key.size() == 16 ? CipherAlgorithm::aes128
                               : key.size() == 24 ? CipherAlgorithm::aes192
                                                  : CipherAlgorithm::aes256;
        for (const bool encrypt : {true, false}) {
            const Bytes &in = encrypt ? plain : coded, &expected = encrypt ? coded : plain;
            CipherContext context;
            for (const size_t blocks : {1000u, 1u, 5u, 37u}) {
                ASSERT_EQ(context.init(algorithm, mode, encrypt, key.data(), iv.data()), 0);
                expect_in_parts(context, blocks * block, in, expected);
            }
            // In the modes that make a key stream a message may end anywhere.
            for (size_t cut = 1; !whole_blocks_only(mode) && cut <= std::min(block, in.size()); cut++) {
                const auto end = static_cast<ptrdiff_t>(in.size() - cut);
                ASSERT_EQ(context.init(algorithm, mode, encrypt, key.data(), iv.data()), 0);
                Bytes out(in.size(), 0x5A);
                ASSERT_EQ(context.update(out.data(), in.data(), in.size() - cut), 0);
                EXPECT_TRUE(std::equal(out.begin(), out.begin() + end, expected.begin())) << cut;
                EXPECT_TRUE(std::all_of(out.begin() + end, out.end(), [](uint8_t b) { return b == 0x5A; }));
            }
        }
    }
}

} // namespace

// Under each kernel of AES, so that each also meets a carry of the counter within its batches.
TEST(CipherContext, AesIsLikeOpenssl) {
    for (const uint32_t hidden : {0u, +kCpuAvx512, +kCpuVaes, +kCpuAesni}) {
        cpu_mask_features(hidden);
        SCOPED_TRACE(aes_kernel());
        check_vectors("cipher/aes_openssl.txt", 16);
    }
    cpu_mask_features(0);
}

TEST(CipherContext, TdeaIsLikeOpenssl) {
    check_vectors("cipher/tdes.txt", 8);
}

TEST(CipherContext, InitNamesWhatIsMissing) {
    const Bytes bytes(32, 0x11);
    CipherContext context;
    for (const CipherAlgorithm algorithm : kAlgorithms) {
        for (const CipherMode mode : kModes) {
            const bool needsIv = mode != CipherMode::ecb;
            EXPECT_EQ(context.init(algorithm, mode, true, nullptr, nullptr), NULL_ERROR);
            EXPECT_EQ(context.init(algorithm, mode, false, nullptr, bytes.data()), NULL_ERROR);
            EXPECT_EQ(context.init(algorithm, mode, true, bytes.data(), nullptr), needsIv ? BAD_IV_ERROR : 0);
            EXPECT_EQ(context.init(algorithm, mode, false, bytes.data(), bytes.data()), 0);
        }
    }
}

TEST(CipherContext, UpdateRefusesOtherLengths) {
    const Bytes bytes(32, 0x11), untouched(48, 0x5A);
    for (const CipherAlgorithm algorithm : kAlgorithms) {
        const size_t block = cipher_block_length(algorithm);
        for (const CipherMode mode : kModes) {
            SCOPED_TRACE(kModeNames[static_cast<int>(mode)]);
            CipherContext context;
            Bytes out = untouched;
            ASSERT_EQ(context.init(algorithm, mode, true, bytes.data(), bytes.data()), 0);
            EXPECT_EQ(context.update(out.data(), bytes.data(), 0), 0);
            if (!whole_blocks_only(mode)) {
                ASSERT_EQ(context.update(out.data(), bytes.data(), block + 1), 0);
                out = untouched;
                EXPECT_EQ(context.update(out.data(), bytes.data(), block), BAD_LENGTH_ERROR);
                EXPECT_EQ(context.update(out.data(), bytes.data(), 0), 0);
                EXPECT_EQ(out, untouched);
            }
            for (size_t length = 1; whole_blocks_only(mode) && length < 2 * block; length++) {
                const int expected = length == block ? 0 : BAD_LENGTH_ERROR;
                Bytes scratch = untouched;
                EXPECT_EQ(context.update(scratch.data(), bytes.data(), length), expected) << length;
                EXPECT_EQ(scratch == untouched, expected != 0) << length;
            }
        }
    }
}

} // namespace zul
