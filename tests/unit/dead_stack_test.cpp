#include <algorithm>
#include <cstring>
#include <functional>
#include <gtest/gtest.h>
#include <vector>

#include "cipher/chacha20_poly1305.h"
#include "ec/curve.h"
#include "ec/ed25519.h"
#include "ec/edwards.h"
#include "ec/modular_inverse.h"
#include "ec/p256_field.h"
#include "ec/p384_field.h"
#include "ec/p521_field.h"
#include "ec/x25519.h"
#include "frame/wipe.h"
#include "support/hidden_features.h"

namespace zul {
namespace {

using Words = std::vector<uint64_t>;

// dead_stack copies what the functions that its caller called before have left below it.
constexpr size_t kDeadWords = 8192;
__attribute__((noinline)) void dead_stack(Words& words) {
    uint64_t below[kDeadWords];
    __asm__ volatile("" : "=m"(below));
    memcpy(words.data(), below, sizeof below);
}

// A number in the forms in which the arithmetic holds it: limbs, and digits of 62, 58 and 51 bits.
template<size_t N>
void add_forms(std::vector<Words>& forms, const Limbs<N>& value) {
    for (const size_t width : {64u, 62u, 58u, 51u}) {
        Words form;
        for (size_t at = 0; at + width <= 64 * N; at += width)
            form.push_back(limbs_bits(value, at, 32) |
                           static_cast<uint64_t>(limbs_bits(value, at + 32, width - 32)) << 32);
        forms.push_back(form);
    }
}

// Half of a number's digits are enough to recognise it, and to compute with.
bool holds(const Words& stack, const Words& form) {
    const auto half = form.begin() + static_cast<ptrdiff_t>(form.size() / 2);
    return std::search(stack.begin(), stack.end(), form.begin(), half) != stack.end() ||
           std::search(stack.begin(), stack.end(), half, form.end()) != stack.end();
}

// expect_clean runs a function on a stack of zeros. Afterwards it may hold none of the numbers, and hardly
// anything at all: return addresses, registers that the wiping itself saves (on Windows ten vectors too).
constexpr int kMostWordsLeft = 80;
void expect_clean(const char* name, const std::vector<Words>& secrets, const std::function<void()>& run) {
    Words stack(kDeadWords);
    wipe_dead_stack(sizeof(uint64_t) * stack.size());
    run();
    dead_stack(stack);
    for (const Words& form : secrets)
        EXPECT_FALSE(holds(stack, form)) << name << ": a number of " << form.size() << " digits";
    EXPECT_LE(std::count_if(stack.begin(), stack.end(), [](uint64_t word) { return word != 0; }),
              kMostWordsLeft)
        << name;
}

template<class Field>
void expect_clean_curve(EcCurve curve) {
    constexpr size_t N = Field::kLimbs;
    const EcOperations& ec = ec_operations(curve);
    uint8_t d[kMaxEcBytes], k[kMaxEcBytes], point[2 * kMaxEcBytes], rs[2 * kMaxEcBytes], x[kMaxEcBytes];
    for (size_t i = 0; i < ec.bytes; i++) {
        d[i] = static_cast<uint8_t>(i == 0 ? 0 : 17 + 91 * i);
        k[i] = static_cast<uint8_t>(i == 0 ? 0 : 99 + 57 * i);
    }
    Limbs<N> secret, number, inverse, opposite, shared;
    limbs_read(secret, d, ec.bytes);
    limbs_read(number, k, ec.bytes);
    modular_inverse(inverse, number, Field::kOrder.p, Field::kBits);
    limbs_subtract(opposite, Field::kOrder.p, inverse);
    std::vector<Words> secrets;
    for (const Limbs<N>& value : {secret, number, inverse, opposite})
        add_forms(secrets, value);
    expect_clean("public_key", secrets, [&] { ec.public_key(point, k); });
    expect_clean("scalar_is_valid", secrets, [&] { EXPECT_TRUE(ec.scalar_is_valid(k)); });
    expect_clean("sign", secrets, [&] { EXPECT_TRUE(ec.sign(rs, d, k, point, 32)); });
    ec.agree(x, d, point);
    limbs_read(shared, x, ec.bytes);
    add_forms(secrets, shared);
    expect_clean("agree", secrets, [&] { ec.agree(x, d, point); });
}

} // namespace

class DeadStack : public test::HiddenFeatures {
  protected:
    void SetUp() override {
#ifdef __SANITIZE_ADDRESS__
        GTEST_SKIP() << "its frames are of other sizes";
#endif
        HiddenFeatures::SetUp();
    }
};

INSTANTIATE_TEST_SUITE_P(Hidden, DeadStack, testing::Values(0, kCpuAdx, kCpuAvx2 | kCpuAvx512Ifma));

TEST_P(DeadStack, HoldsNoSecretsOfCurves) {
    expect_clean_curve<P256Field>(EcCurve::p256);
    expect_clean_curve<P384Field>(EcCurve::p384);
    expect_clean_curve<P521Field>(EcCurve::p521);
}

TEST_P(DeadStack, HoldsNoSecretsOfCurve25519) {
    uint8_t secret[32], point[32], signature[kEd25519Signature], shared[32];
    for (size_t i = 0; i < sizeof secret; i++)
        secret[i] = static_cast<uint8_t>(0x40 + 37 * i);
    std::vector<Words> secrets;
    add_forms(secrets, read_little_endian(secret));
    expect_clean("ed25519_public", secrets, [&] { ed25519_public(point, secret); });
    expect_clean("ed25519_sign", secrets, [&] {
        Ed25519Bytes message(point, sizeof point);
        EXPECT_TRUE(ed25519_sign(signature, secret, point, message, Ed25519Form::pure));
    });
    x25519_public(point, secret);
    EXPECT_TRUE(x25519(shared, secret, point));
    add_forms(secrets, read_little_endian(shared));
    expect_clean("x25519", secrets, [&] { EXPECT_TRUE(x25519(shared, secret, point)); });
}

TEST_P(DeadStack, HoldsNoKeyOfChaCha20Poly1305) {
    uint8_t key[kChaChaKey], tag[kPoly1305Tag], data[4096]{};
    for (size_t i = 0; i < sizeof key; i++)
        key[i] = static_cast<uint8_t>(0x40 + 37 * i);
    std::vector<Words> secrets;
    add_forms(secrets, read_little_endian(key));
    for (const uint32_t hidden : {0u, uint32_t{kCpuAvx512}, uint32_t{kCpuAvx512 | kCpuAvx2}}) {
        cpu_mask_features(GetParam() | hidden);
        for (const size_t size : {0u, 32u, 960u, 1024u, 4096u}) {
            expect_clean("encrypt", secrets,
                         [&] { chacha20_poly1305_encrypt(data, tag, key, key, nullptr, 0, data, size); });
            expect_clean("decrypt", secrets, [&] {
                EXPECT_TRUE(chacha20_poly1305_decrypt(data, tag, key, key, nullptr, 0, data, size));
            });
            expect_clean("wrong tag", secrets, [&] {
                EXPECT_FALSE(chacha20_poly1305_decrypt(data, key, key, key, nullptr, 0, data, size));
            });
        }
    }
}

} // namespace zul
