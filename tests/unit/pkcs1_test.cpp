#include "rsa/pkcs1_encryption.h"
#include "rsa/pkcs1_signature.h"
#include "support/unit_test.h"
#include "zulcore.h"

using namespace zul;

TEST(Pkcs1Encryption, PadsWithNonzeroBytesAndFindsTheirEnd) {
    const Bytes message(2000 - kPkcs1Overhead + 1, 0);
    Bytes block(2000);
    EXPECT_EQ(pkcs1_encrypt_block(block.data(), 2000, message.data(), message.size()), SHORT_BUF_ERROR);
    for (const size_t length : {message.size() - 1, size_t{1}, size_t{0}}) {
        ASSERT_EQ(pkcs1_encrypt_block(block.data(), 2000, message.data(), length), 0);
        EXPECT_EQ(block[1], 2);
        EXPECT_EQ(memchr(block.data() + 2, 0, 1998), &block[2000 - length - 1]);
    }
    size_t start = 0;
    for (size_t end = 2; end < 20; end++) {
        Bytes good(20, 0x77);
        good[0] = 0, good[1] = 2, good[end] = good[19] = 0;
        EXPECT_EQ(pkcs1_decrypt_block(good.data(), 20, &start), end < 10 ? DECRYPT_ERROR : 0);
        EXPECT_EQ(start, end < 10 ? 0 : end + 1);
        for (size_t bit = 0; bit < 16; bit++) {
            Bytes bad = good;
            bad[bit / 8] = static_cast<uint8_t>(bad[bit / 8] ^ (1u << bit % 8));
            EXPECT_EQ(pkcs1_decrypt_block(bad.data(), 20, &start), DECRYPT_ERROR);
        }
        EXPECT_EQ(pkcs1_decrypt_block(good.data(), std::min<size_t>(end, 19), &start), DECRYPT_ERROR);
    }
}

TEST(Pkcs1Signature, OpensNothingButWholeBlocks) {
    for (int algorithm = 0; algorithm <= 6; algorithm++) {
        SCOPED_TRACE(algorithm);
        const DigestInfoPrefix& made = *digest_info_prefix(algorithm);
        Bytes info(made.bytes, made.bytes + made.length);
        info.resize(made.length + made.digestLength, 0xAB);
        size_t start = 0;
        const DigestInfoPrefix* prefix = nullptr;
        const auto open = [&](const Bytes& block) {
            return pkcs1_open_block(block.data(), block.size(), &start, &prefix);
        };
        // Seven bytes of padding are enough, six are not.
        for (const size_t padding : {6u, 7u, 8u}) {
            Bytes block(2 + padding, 0xFF);
            block[0] = 0, block[1] = 1;
            block.push_back(0);
            block.insert(block.end(), info.begin(), info.end());
            ASSERT_EQ(open(block), padding < 7 ? DECRYPT_ERROR : 0);
            EXPECT_TRUE(padding < 7 || start == padding + 3);
            for (size_t i = 0; i < block.size() - made.digestLength; i++) {
                Bytes bad = block;
                bad[i] = static_cast<uint8_t>(bad[i] ^ (1u << i % 8));
                EXPECT_EQ(open(bad), DECRYPT_ERROR) << i;
            }
            Bytes other = block;
            other.push_back(0);
            EXPECT_EQ(open(other), DECRYPT_ERROR);
            for (other.pop_back(); !other.empty();) {
                other.pop_back();
                EXPECT_EQ(open(other), DECRYPT_ERROR) << other.size();
            }
        }
    }
}
