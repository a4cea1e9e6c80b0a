#include <gtest/gtest.h>

#include "cipher/rc2.h"
#include "frame/wipe.h"
#include "support/vectors.h"

namespace zul {

using Bytes = std::vector<uint8_t>;

TEST(Rc2, VectorsBothWays) {
    for (const auto& v : test::read_vectors("cipher/rc2.txt")) {
        SCOPED_TRACE(v.where());
        const Bytes plain = v.hex("Plaintext"), coded = v.hex("Ciphertext"), bytes = v.hex("Key");
        ASSERT_EQ(plain.size(), coded.size());
        const size_t blocks = plain.size() / 8;
        Bytes out(plain.size()), back(plain.size());
        Wiped<Rc2Key> key;
        ASSERT_TRUE(rc2_set_key(*key, bytes.data(), bytes.size(), static_cast<unsigned>(v.number("Bits"))));
        if (v.has("IV")) {
            Bytes iv = v.hex("IV");
            rc2_cbc_encrypt(*key, iv.data(), out.data(), plain.data(), blocks);
            const Bytes last(coded.end() - 8, coded.end());
            EXPECT_EQ(iv, last);
            iv = v.hex("IV");
            back = coded;
            rc2_cbc_decrypt(*key, iv.data(), back.data(), back.data(), blocks);
            EXPECT_EQ(iv, last);
        } else {
            rc2_ecb_encrypt(*key, out.data(), plain.data(), blocks);
            rc2_ecb_decrypt(*key, back.data(), coded.data(), blocks);
        }
        EXPECT_EQ(out, coded);
        EXPECT_EQ(back, plain);
    }
}

TEST(Rc2, LengthsOutsideTheStandardAreRefused) {
    const Bytes bytes(129, 0x42);
    Wiped<Rc2Key> key;
    EXPECT_FALSE(rc2_set_key(*key, bytes.data(), 0, 64));
    EXPECT_FALSE(rc2_set_key(*key, bytes.data(), 129, 64));
    EXPECT_FALSE(rc2_set_key(*key, bytes.data(), 8, 0));
    EXPECT_FALSE(rc2_set_key(*key, bytes.data(), 8, 1025));
    for (const uint16_t word : key->words)
        ASSERT_EQ(word, 0);
    EXPECT_TRUE(rc2_set_key(*key, bytes.data(), 128, 1024));
}

} // namespace zul
