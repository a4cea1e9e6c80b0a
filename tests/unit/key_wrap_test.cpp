#include "cipher/key_wrap.h"
#include "support/unit_test.h"
#include "zulcore.h"

using namespace zul;

namespace {

Bytes fixedRandom;

int give_fixed(uint8_t* out, size_t length) {
    EXPECT_EQ(length, fixedRandom.size());
    memcpy(out, fixedRandom.data(), length);
    return 0;
}

int give_failure(uint8_t*, size_t) {
    return PRNG_ERR_FAILURE;
}

// Every wrapped form with one bit changed must be refused and leave only zeros.
template<class Unwrap>
void expect_damage_refused(const Bytes& wrapped, size_t keyLength, Unwrap unwrap) {
    for (size_t i = 0; i < wrapped.size(); i++) {
        Bytes damaged = wrapped;
        damaged[i] = static_cast<uint8_t>(damaged[i] ^ (1u << i % 8));
        Bytes out(keyLength + 1, 0x5A);
        EXPECT_EQ(unwrap(out.data(), damaged.data()), kUnwrapFailed) << "byte " << i;
        EXPECT_EQ(std::count(out.begin(), out.end() - 1, 0), static_cast<long>(keyLength)) << "byte " << i;
        EXPECT_EQ(out.back(), 0x5A);
    }
}

} // namespace

TEST(AesKeyWrap, MeetsItsStandardInPlaceToo) {
    for (const auto& v : test::read_vectors("cipher/key_wrap_aes.txt")) {
        const Bytes kek = v.hex("KEK"), key = v.hex("Key"), wrapped = v.hex("Wrapped");
        for (const size_t offset : {0u, 3u, 8u}) { // any overlap works
            Bytes buffer(wrapped.size() + offset);
            std::copy(key.begin(), key.end(), buffer.begin() + static_cast<long>(offset));
            EXPECT_EQ(aes_key_wrap(buffer.data(), buffer.data() + offset, key.size(), kek.data(), kek.size()),
                      0);
            EXPECT_TRUE(std::equal(wrapped.begin(), wrapped.end(), buffer.begin())) << offset;

            buffer.assign(wrapped.size() + offset, 0);
            std::copy(wrapped.begin(), wrapped.end(), buffer.begin());
            EXPECT_EQ(
                aes_key_unwrap(buffer.data() + offset, buffer.data(), wrapped.size(), kek.data(), kek.size()),
                0);
            EXPECT_TRUE(std::equal(key.begin(), key.end(), buffer.begin() + static_cast<long>(offset)))
                << offset;
        }
        expect_damage_refused(wrapped, key.size(), [&](uint8_t* to, const uint8_t* from) {
            return aes_key_unwrap(to, from, wrapped.size(), kek.data(), kek.size());
        });
        Bytes out(wrapped.size());
        EXPECT_EQ(aes_key_wrap(out.data(), key.data(), key.size(), kek.data(), 15), BAD_KEY_LEN_ERROR);
        EXPECT_EQ(aes_key_unwrap(out.data(), out.data(), out.size(), kek.data(), 15), BAD_KEY_LEN_ERROR);
    }
}

TEST(TdesKeyWrap, MeetsItsStandardInPlaceToo) {
    for (const auto& v : test::read_vectors("cipher/key_wrap_tdes.txt")) {
        const Bytes kek = v.hex("KEK"), key = v.hex("Key"), wrapped = v.hex("Wrapped");
        fixedRandom = v.hex("IV");
        Bytes buffer = key;
        buffer.resize(kTdesWrappedKey);
        EXPECT_EQ(tdes_key_wrap(buffer.data(), buffer.data(), kek.data(), give_fixed), 0);
        EXPECT_EQ(buffer, wrapped);
        EXPECT_EQ(tdes_key_unwrap(buffer.data(), buffer.data(), kek.data()), 0);
        buffer.resize(kTdesWrapKey);
        EXPECT_EQ(buffer, key);
        expect_damage_refused(wrapped, kTdesWrapKey, [&](uint8_t* to, const uint8_t* from) {
            return tdes_key_unwrap(to, from, kek.data());
        });

        Bytes wrongParity = key, out(kTdesWrappedKey, 0x5A);
        for (uint8_t& byte : wrongParity)
            byte ^= 1;
        EXPECT_EQ(tdes_key_wrap(out.data(), wrongParity.data(), kek.data(), give_failure), PRNG_ERR_FAILURE);
        EXPECT_EQ(out, Bytes(kTdesWrappedKey, 0x5A));
        EXPECT_EQ(tdes_key_wrap(out.data(), wrongParity.data(), kek.data(), give_fixed), 0);
        EXPECT_EQ(tdes_key_unwrap(buffer.data(), out.data(), kek.data()), 0);
        EXPECT_EQ(buffer, wrongParity);
    }
}
