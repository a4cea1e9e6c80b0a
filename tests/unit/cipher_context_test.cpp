#include "cipher/cipher_context.h"
#include "support/unit_test.h"
#include "zulcore.h"

using namespace zul;

namespace {

constexpr CipherAlgorithm kAlgorithms[] = {CipherAlgorithm::tdea, CipherAlgorithm::aes128,
                                           CipherAlgorithm::aes192, CipherAlgorithm::aes256};
constexpr CipherMode kModes[] = {CipherMode::ecb, CipherMode::cbc, CipherMode::cfb, CipherMode::ofb,
                                 CipherMode::ctr};

bool whole_blocks_only(CipherMode mode) {
    return mode == CipherMode::ecb || mode == CipherMode::cbc;
}

// Vectors without an IV are of ECB: each block alone, which is CBC from a zero IV.
void check_cbc_vectors(const char* file, CipherAlgorithm algorithm) {
    for (const auto& v : test::read_vectors(file)) {
        const Bytes plain = v.hex("Plaintext"), coded = v.hex("Ciphertext"), bytes = v.hex("Key");
        const bool chained = v.has("IV");
        if (v.has("Mode")) {
            EXPECT_EQ(v.text("Mode"), chained ? "CBC" : "ECB");
        }
        const Bytes iv = chained ? v.hex("IV") : Bytes(8);
        const CipherKey key = {bytes.data(), bytes.size(),
                               v.has("Bits") ? static_cast<unsigned>(v.number("Bits")) : 0};
        const size_t step = chained ? plain.size() : 8;
        for (const bool encrypt : {true, false}) {
            Bytes data = encrypt ? plain : coded;
            for (size_t at = 0; at < data.size(); at += step) {
                CipherContext context;
                ASSERT_EQ(context.init(algorithm, CipherMode::cbc, encrypt, key, iv.data()), 0);
                ASSERT_EQ(context.update(data.data() + at, data.data() + at, step), 0);
            }
            EXPECT_EQ(data, encrypt ? coded : plain);
        }
    }
}

} // namespace

TEST(CipherContext, DesAndRc2MeetTheirVectors) {
    check_cbc_vectors("cipher/des.txt", CipherAlgorithm::des);
    check_cbc_vectors("cipher/rc2.txt", CipherAlgorithm::rc2);
}

TEST(CipherContext, PartsAndAnyEndGiveTheSame) {
    const Bytes in = test::sequence(40 * 16), key = test::sequence(32), iv = test::sequence(16);
    for (const CipherAlgorithm algorithm : kAlgorithms) {
        const size_t block = cipher_block_length(algorithm);
        for (const CipherMode mode : kModes) {
            SCOPED_TRACE(testing::Message() << static_cast<int>(algorithm) << " " << static_cast<int>(mode));
            for (const bool encrypt : {true, false}) {
                CipherContext context;
                Bytes whole(in.size());
                ASSERT_EQ(context.init(algorithm, mode, encrypt, key.data(), iv.data()), 0);
                ASSERT_EQ(context.update(whole.data(), in.data(), in.size()), 0);
                for (const size_t part : {block, 5 * block, 37 * block}) {
                    Bytes out = in; // in place
                    ASSERT_EQ(context.init(algorithm, mode, encrypt, key.data(), iv.data()), 0);
                    for (size_t at = 0; at < out.size(); at += part)
                        ASSERT_EQ(
                            context.update(out.data() + at, out.data() + at, std::min(part, out.size() - at)),
                            0);
                    EXPECT_EQ(out, whole);
                }
                // In the modes that make a key stream a message may end anywhere.
                for (size_t cut = 1; !whole_blocks_only(mode) && cut <= block; cut++) {
                    const auto end = static_cast<ptrdiff_t>(in.size() - cut);
                    Bytes out(in.size(), 0x5A), expected(whole.begin(), whole.begin() + end);
                    expected.resize(in.size(), 0x5A);
                    ASSERT_EQ(context.init(algorithm, mode, encrypt, key.data(), iv.data()), 0);
                    ASSERT_EQ(context.update(out.data(), in.data(), in.size() - cut), 0);
                    EXPECT_EQ(out, expected) << cut;
                }
            }
        }
    }
}

TEST(CipherContext, InitNamesWhatIsMissing) {
    const Bytes bytes(129, 0x11);
    CipherContext context;
    for (size_t length = 0; length <= 40; length++)
        EXPECT_EQ(context.init(CipherAlgorithm::aes128, CipherMode::cfb, true, {bytes.data(), length, 0},
                               bytes.data()),
                  length == 16 || length == 24 || length == 32 ? 0 : BAD_KEY_LEN_ERROR);
    const struct {
        size_t length;
        unsigned bits;
        int code;
    } rc2[] = {{0, 64, BAD_KEY_LEN_ERROR},
               {129, 64, BAD_KEY_LEN_ERROR},
               {8, 0, BAD_KEY_LEN_ERROR},
               {8, 1025, BAD_KEY_LEN_ERROR},
               {1, 1, 0},
               {128, 1024, 0}};
    for (const auto& c : rc2)
        EXPECT_EQ(context.init(CipherAlgorithm::rc2, CipherMode::cbc, true, {bytes.data(), c.length, c.bits},
                               bytes.data()),
                  c.code);
    EXPECT_EQ(context.init(CipherAlgorithm::des, CipherMode::ctr, true, bytes.data(), bytes.data()),
              BAD_MODE_ERROR);
}

TEST(CipherContext, UpdateRefusesOtherLengths) {
    const Bytes bytes(32, 0x11), untouched(48, 0x5A);
    for (const CipherAlgorithm algorithm : kAlgorithms) {
        const size_t block = cipher_block_length(algorithm);
        for (const CipherMode mode : kModes) {
            SCOPED_TRACE(static_cast<int>(mode));
            CipherContext context;
            Bytes out = untouched;
            EXPECT_EQ(context.init(algorithm, mode, true, nullptr, bytes.data()), NULL_ERROR);
            EXPECT_EQ(context.init(algorithm, mode, true, bytes.data(), nullptr),
                      mode == CipherMode::ecb ? 0 : BAD_IV_ERROR);
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
