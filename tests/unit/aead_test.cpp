#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "cipher/aead.h"
#include "cipher/poly1305.h"
#include "support/hidden_features.h"
#include "support/vectors.h"
#include "zulcore.h"

namespace zul {
namespace {

using test::Bytes, test::sequence;

// Each set takes one kernel more away from ChaCha20, Poly1305, POLYVAL or AES.
constexpr uint32_t kNoAvx512 = kCpuAvx512 | kCpuAvx512Ifma, kNoAvx2 = kNoAvx512 | kCpuAvx2 | kCpuVaes;
constexpr uint32_t kHidden[] = {
    0,       kCpuAvx512Ifma,      kCpuVaes | kCpuVclmul,           kNoAvx512,
    kNoAvx2, kNoAvx2 | kCpuClmul, kNoAvx2 | kCpuClmul | kCpuAesni, kNoAvx2 | kCpuAesni | kCpuSsse3};

class AeadKernels : public test::HiddenFeatures {};

AeadInput input_of(const Bytes& key, const Bytes& nonce, const Bytes& aad, const Bytes& data) {
    return {key.data(), nonce.data(), aad.data(), data.data(),
            key.size(), nonce.size(), aad.size(), data.size()};
}

Bytes encrypted(Aead algorithm, const AeadInput& input) {
    EXPECT_EQ(aead_check(algorithm, input), 0);
    Bytes out(input.size + kAeadTag);
    aead_encrypt(algorithm, out.data(), input);
    return out;
}

// decrypts is false, and expects zeros, if the tag is wrong.
bool decrypts(Aead algorithm, AeadInput input, const Bytes& data, Bytes& plain) {
    input.data = data.data();
    input.size = data.size() - kAeadTag;
    plain.assign(input.size, 0xA5);
    const int error = aead_decrypt(algorithm, plain.data(), input);
    if (error != 0) {
        EXPECT_EQ(error, DECRYPT_ERROR);
        EXPECT_EQ(plain, Bytes(input.size));
    }
    return error == 0;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Hidden, AeadKernels, testing::ValuesIn(kHidden));

TEST_P(AeadKernels, MeetTheStandards) {
    for (const auto& v : test::read_vectors("cipher/aead.txt")) {
        Aead algorithm{};
        ASSERT_EQ(aead_find(algorithm, v.text("Algorithm").c_str()), 0);
        const Bytes key = v.hex("Key"), nonce = v.hex("Nonce"), aad = v.hex("Aad"), plain = v.hex("Plain");
        const AeadInput input = input_of(key, nonce, aad, plain);
        Bytes out = encrypted(algorithm, input), back;
        ASSERT_EQ(test::to_hex(out), v.text("Output"));
        EXPECT_TRUE(decrypts(algorithm, input, out, back) && back == plain);
        for (size_t i = 0; i < out.size(); i += 5) {
            out[i] ^= static_cast<uint8_t>(1 << i % 8);
            EXPECT_FALSE(decrypts(algorithm, input, out, back)) << i;
            out[i] ^= static_cast<uint8_t>(1 << i % 8);
        }
        for (const Bytes& other : {sequence(aad.size() + 1, 0), Bytes(aad.size() + 16)})
            EXPECT_FALSE(decrypts(algorithm, input_of(key, nonce, other, {}), out, back));
    }
}

// Every length that begins or ends a run of some kernel, in and out of place; the portable code, which
// MeetTheStandards has checked, is the measure.
TEST_P(AeadKernels, EqualThePortableOnesAtEveryLength) {
    const Bytes key = sequence(32, 1), nonce = sequence(12, 2), aad = sequence(5000, 3),
                data = sequence(5000, 4);
    std::vector<size_t> sizes;
    for (size_t size = 0; size <= 272; size++)
        sizes.push_back(size);
    for (size_t size = 288; size <= 4096; size += 16 + size / 4 / 16 * 16)
        sizes.insert(sizes.end(), {size - 1, size, size + 1});
    for (const Aead algorithm : {Aead::aes256Gcm, Aead::chacha20Poly1305, Aead::aes256GcmSiv}) {
        for (const size_t size : sizes) {
            AeadInput input = input_of(key, nonce, aad, data);
            input.size = size;
            input.aadSize = (7 * size) % 4500;
            cpu_mask_features(kHidden[std::size(kHidden) - 1]);
            const Bytes expected = encrypted(algorithm, input);
            cpu_mask_features(GetParam());
            Bytes inPlace = data, plain;
            inPlace.resize(size + kAeadTag);
            input.data = inPlace.data();
            aead_encrypt(algorithm, inPlace.data(), input);
            ASSERT_EQ(inPlace, expected) << static_cast<int>(algorithm) << ": " << size;
            ASSERT_TRUE(decrypts(algorithm, input, expected, plain));
            ASSERT_EQ(size == 0 ? 0 : memcmp(plain.data(), data.data(), size), 0)
                << static_cast<int>(algorithm) << ": " << size;
        }
    }
}

// Sums around the prime (RFC 8439, A.3, cases 6 to 9) and blocks of ones, of which a kernel's carries are
// longest.
TEST_P(AeadKernels, CarryInPoly1305) {
    const std::string ones(32, 'f'), two = "02000000000000000000000000000000";
    const struct {
        std::string r, s, data, tag;
    } rows[] = {
        {"01000000000000000000000000000000", std::string(32, '0'),
         ones + "f0" + std::string(30, 'f') + "11" + std::string(30, '0'),
         "05000000000000000000000000000000"},
        {"01000000000000000000000000000000", std::string(32, '0'),
         ones + "fbfefefefefefefefefefefefefefefe" + "01010101010101010101010101010101",
         std::string(32, '0')},
        {two, std::string(32, '0'), "fd" + std::string(30, 'f'), "fa" + std::string(30, 'f')},
        {two, ones, two, "03000000000000000000000000000000"},
    };
    for (const auto& row : rows) {
        Poly1305 mac(test::from_hex(row.r + row.s).data());
        const Bytes data = test::from_hex(row.data);
        mac.absorb_last(data.data(), data.size());
        uint8_t tag[kPoly1305Tag];
        mac.finish(tag);
        EXPECT_EQ(test::to_hex(tag, sizeof tag), row.tag) << row.data;
    }
    const Bytes key(32, 0xFF), data(16 * 300, 0xFF);
    for (size_t blocks = 30; blocks <= 300; blocks += 9) {
        uint8_t expected[kPoly1305Tag], tag[kPoly1305Tag];
        for (uint8_t* to : {expected, tag}) {
            cpu_mask_features(to == expected ? kHidden[std::size(kHidden) - 1] : GetParam());
            Poly1305 mac(key.data());
            mac.absorb_padded(data.data(), 16 * blocks);
            mac.finish(to);
        }
        EXPECT_EQ(memcmp(tag, expected, sizeof tag), 0) << blocks;
    }
}

} // namespace zul
