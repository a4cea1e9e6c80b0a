#include <algorithm>
#include <climits>
#include <cstdlib>

#include "support/module_calls.h"

using test::Bytes;

namespace {

int aes_option(size_t kekLength) {
    return kekLength == 16 ? ZUL_CIPHER_AES128 : kekLength == 24 ? ZUL_CIPHER_AES192 : ZUL_CIPHER_AES256;
}

} // namespace

TEST(KeyWrap, WrapsAndUnwrapsWithAes) {
    for (const auto& v : test::read_vectors("cipher/key_wrap_aes.txt")) {
        const Bytes kek = v.hex("KEK"), key = v.hex("Key"), wrapped = v.hex("Wrapped");
        const int kekLen = static_cast<int>(kek.size()), keyLen = static_cast<int>(key.size());
        const int options = aes_option(kek.size()) | 0x10F0F;
        Bytes buffer = key;
        buffer.resize(wrapped.size());
        uint8_t* b = buffer.data();
        EXPECT_EQ(CIPHER_KeyWrap(nullptr, 0, b, keyLen, kek.data(), kekLen, options), keyLen + 8);
        EXPECT_EQ(CIPHER_KeyWrap(b, keyLen + 7, b, keyLen, kek.data(), kekLen, options), -SHORT_BUF_ERROR);
        EXPECT_EQ(CIPHER_KeyWrap(b, keyLen + 8, b, keyLen, kek.data(), kekLen, options), keyLen + 8);
        EXPECT_EQ(buffer, wrapped);
        EXPECT_EQ(CIPHER_KeyUnwrap(b, 0, b, keyLen + 8, kek.data(), kekLen, options), keyLen);
        EXPECT_EQ(CIPHER_KeyUnwrap(b, keyLen - 1, b, keyLen + 8, kek.data(), kekLen, options),
                  -SHORT_BUF_ERROR);
        EXPECT_EQ(buffer, wrapped);
        EXPECT_EQ(CIPHER_KeyUnwrap(b, keyLen, b, keyLen + 8, kek.data(), kekLen, options), keyLen);
        EXPECT_TRUE(std::equal(key.begin(), key.end(), buffer.begin()));

        Bytes wrongKek = kek, out(key.size(), 0x5A);
        wrongKek[0] ^= 1;
        EXPECT_RESULT(CIPHER_KeyUnwrap(out.data(), keyLen, wrapped.data(), keyLen + 8, wrongKek.data(),
                                       kekLen, options),
                      -1);
        EXPECT_EQ(out, Bytes(key.size()));
    }
}

TEST(KeyWrap, WrapsAndUnwrapsWithTripleDes) {
    const auto vectors = test::read_vectors("cipher/key_wrap_tdes.txt");
    const auto& v = *vectors.begin();
    const Bytes kek = v.hex("KEK"), key = v.hex("Key"), wrapped = v.hex("Wrapped");
    v.hex("IV"); // the library draws one of its own
    Bytes first(40), second(40), out(24);
    EXPECT_EQ(CIPHER_KeyUnwrap(out.data(), 24, wrapped.data(), 40, kek.data(), 24, ZUL_CIPHER_TDEA), 24);
    EXPECT_EQ(out, key);
    EXPECT_EQ(CIPHER_KeyWrap(nullptr, 0, key.data(), 24, kek.data(), 24, ZUL_CIPHER_TDEA), 40);
    EXPECT_EQ(CIPHER_KeyWrap(first.data(), 39, key.data(), 24, kek.data(), 24, ZUL_CIPHER_TDEA),
              -SHORT_BUF_ERROR);
    EXPECT_EQ(first, Bytes(40));
    EXPECT_EQ(CIPHER_KeyWrap(first.data(), 40, key.data(), 24, kek.data(), 24, ZUL_CIPHER_TDEA), 40);
    EXPECT_EQ(CIPHER_KeyWrap(second.data(), 40, key.data(), 24, kek.data(), 24, ZUL_CIPHER_TDEA), 40);
    EXPECT_NE(first, second);
    for (const Bytes* each : {&first, &second}) {
        out.assign(24, 0);
        EXPECT_EQ(CIPHER_KeyUnwrap(out.data(), 24, each->data(), 40, kek.data(), 24, ZUL_CIPHER_TDEA), 24);
        EXPECT_EQ(out, key);
    }
    EXPECT_EQ(CIPHER_KeyUnwrap(nullptr, 0, first.data(), 40, kek.data(), 24, ZUL_CIPHER_TDEA), 24);
    EXPECT_EQ(CIPHER_KeyUnwrap(out.data(), 23, first.data(), 40, kek.data(), 24, ZUL_CIPHER_TDEA),
              -SHORT_BUF_ERROR);
    first[39] ^= 0x80;
    EXPECT_RESULT(CIPHER_KeyUnwrap(out.data(), 24, first.data(), 40, kek.data(), 24, ZUL_CIPHER_TDEA), -1);
    EXPECT_EQ(out, Bytes(24));
}

TEST(KeyWrap, RefusesMisuse) {
    const Bytes bytes(64, 0x11);
    const uint8_t* b = bytes.data();
    const struct {
        const uint8_t* data;
        int length;
        const uint8_t* kek;
        int kekLength, options, wrap, unwrap;
    } cases[] = {
        {nullptr, 24, b, 16, 0x20, -6, -6},
        {b, 24, nullptr, 16, 0x20, -6, -6},
        {b, -1, b, 16, 0x20, -26, -26},
        {b, INT_MIN, b, 16, 0x20, -26, -26},
        {b, 24, b, -16, 0x20, -33, -33},
        {b, 24, b, 16, 0x00, -17, -17},
        {b, 24, b, 16, 0x50, -17, -17},
        {b, 24, b, 16, 0x0F, -17, -17},
        {b, 24, b, 24, 0x20, -33, -33},
        {b, 24, b, 16, 0x30, -33, -33},
        {b, 24, b, 24, 0x40, -33, -33},
        {b, 24, b, 16, 0x10, -33, -33},
        {b, 24, b, 0, 0x20, -33, -33},
        {b, 0, b, 16, 0x20, -26, -26},
        {b, 8, b, 16, 0x20, -26, -26},
        {b, 16, b, 16, 0x20, 24, -26},
        {b, 23, b, 16, 0x20, -26, -26},
        {b, 25, b, 32, 0x40, -26, -26},
        {b, INT_MAX - 7, b, 16, 0x20, -26, INT_MAX - 15},
        {b, INT_MAX, b, 16, 0x20, -26, -26},
        {b, 40, b, 24, 0x10, -26, 24},
        {b, 24, b, 24, 0x10, 40, -26},
        {b, 16, b, 24, 0x10, -26, -26},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << "case " << &c - cases);
        EXPECT_RECORDED(CIPHER_KeyWrap(nullptr, 0, c.data, c.length, c.kek, c.kekLength, c.options), c.wrap,
                        std::max(0, -c.wrap));
        EXPECT_RECORDED(CIPHER_KeyUnwrap(nullptr, 0, c.data, c.length, c.kek, c.kekLength, c.options),
                        c.unwrap, std::max(0, -c.unwrap));
        // The same codes with an output, which stays as it is.
        Bytes out(64, 0x5A);
        if (c.wrap < 0) {
            EXPECT_EQ(CIPHER_KeyWrap(out.data(), 64, c.data, c.length, c.kek, c.kekLength, c.options),
                      c.wrap);
        }
        if (c.unwrap < 0) {
            EXPECT_EQ(CIPHER_KeyUnwrap(out.data(), 64, c.data, c.length, c.kek, c.kekLength, c.options),
                      c.unwrap);
        }
        EXPECT_EQ(out, Bytes(64, 0x5A));
    }
}
