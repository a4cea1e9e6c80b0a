#include "hash/digest.h"
#include "rsa/oaep.h"
#include "support/unit_test.h"

using namespace zul;

// That others read and write the same blocks is tested with the exports.
TEST(Oaep, TakesMessagesUpToItsLimitAndSeesDamage) {
    for (int algorithm = 0; algorithm <= 6; algorithm++) {
        SCOPED_TRACE(algorithm);
        const size_t smallest = 2 * digest_length(algorithm) + 2, limit = 200 - smallest;
        const std::vector<uint8_t> message(limit + 1, 0);
        std::vector<uint8_t> block(200), again(200);
        SecretBuffer content;
        size_t start = 0;
        for (const size_t length : {size_t{0}, size_t{1}, limit}) {
            ASSERT_EQ(oaep_encode(block.data(), 200, message.data(), length, algorithm), 0);
            ASSERT_EQ(oaep_encode(again.data(), 200, message.data(), length, algorithm), 0);
            EXPECT_NE(block, again); // the seed is random
            ASSERT_EQ(oaep_decode(content, &start, block.data(), 200, algorithm), 0);
            ASSERT_EQ(content.size() - start, length);
            EXPECT_EQ(memcmp(content.data() + start, message.data(), length), 0);
            for (size_t i = 0; i < 200; i++) {
                again = block;
                again[i] = static_cast<uint8_t>(again[i] ^ (1u << i % 8));
                EXPECT_EQ(oaep_decode(content, &start, again.data(), 200, algorithm), DECRYPT_ERROR) << i;
            }
        }
        EXPECT_EQ(oaep_encode(block.data(), 200, message.data(), limit + 1, algorithm), SHORT_BUF_ERROR);
        EXPECT_EQ(oaep_encode(block.data(), smallest - 1, nullptr, 0, algorithm), SHORT_BUF_ERROR);
        EXPECT_EQ(oaep_encode(block.data(), smallest, nullptr, 0, algorithm), 0);
        EXPECT_EQ(oaep_decode(content, &start, block.data(), smallest, algorithm), 0);
        EXPECT_EQ(oaep_decode(content, &start, block.data(), smallest - 1, algorithm), BAD_LENGTH_ERROR);
    }
}

// Blocks of SHA-1 with one fault each, put together by a few lines of Python.
TEST(Oaep, SeesEveryFaultByItself) {
    const struct {
        const char *what, *block;
        int result;
    } cases[] = {
        {"none",
         "009f12cc77943ad448c451d33fa39cb6b1cf80b393d8bcf0367fb055802993d4"
         "4ae1a0fb809edd2e3899f37263a574171d607880917aefcf642294b08b998daa",
         0},
        {"padding",
         "00efbf0be7235160dbddccdabdcfa1968ce0804d2dd8bcf0367fb055802993d4"
         "4ae1a0fb809edd2e3899f37263a574171d607880917aefcf642294b089998daa",
         DECRYPT_ERROR},
        {"no separator",
         "00e3eed85068315cb1a23b19dbc9df5f49351670d1d8bcf0367fb055802993d4"
         "4ae1a0fb809edd2e3899f37263a574171d607880917aefcf642294b08b982711",
         DECRYPT_ERROR},
        {"first byte",
         "019f12cc77943ad448c451d33fa39cb6b1cf80b393d8bcf0367fb055802993d4"
         "4ae1a0fb809edd2e3899f37263a574171d607880917aefcf642294b08b998daa",
         DECRYPT_ERROR},
        {"label",
         "00ef1a1d363716989e759c0b75a90dc45e23367c3cd8bcf0367fb055802993d4"
         "4ae1a0fb809edd2e3999f37263a574171d607880917aefcf642294b08b998daa",
         DECRYPT_ERROR},
    };
    for (const auto& c : cases) {
        const auto block = test::from_hex(c.block);
        SecretBuffer content;
        size_t start = 0;
        EXPECT_EQ(oaep_decode(content, &start, block.data(), block.size(), kDigestSha1), c.result) << c.what;
    }
}
