#include "rng/drbg_kernels.h"
#include "rng/hmac_drbg.h"
#include "rng/known_answer.h"
#include "rng/rng.h"
#include "support/hidden_features.h"
#include "support/unit_test.h"

using namespace zul;
using test::to_hex;

namespace {

using Buffer = std::vector<uint8_t>;

Buffer optional(const test::Vector& v, const char* name) {
    return v.has(name) ? v.hex(name) : Buffer();
}

AdditionalInput additional(const Buffer& bytes) {
    return {bytes.data(), bytes.size()};
}

Buffer generate(DrbgState& drbg, size_t size, const Buffer& input) {
    Buffer out(size);
    drbg_generate(drbg, out.data(), size, additional(input));
    return out;
}

DrbgState seeded() {
    const Buffer entropy(20, 0x11), nonce(20, 0x22);
    DrbgState drbg;
    drbg_instantiate(drbg, entropy, nonce, {});
    return drbg;
}

bool same(const DrbgState& a, const DrbgState& b) {
    return memcmp(&a, &b, sizeof a) == 0;
}

} // namespace

// The tests of this fixture run with each kernel.
class HmacDrbg : public test::HiddenFeatures {};
INSTANTIATE_TEST_SUITE_P(Hidden, HmacDrbg, testing::Values(0u, kCpuShani));

TEST_P(HmacDrbg, Vectors) {
    for (const auto& v : test::read_vectors("rng/hmac_drbg_sha1.txt")) {
        DrbgState drbg;
        drbg_instantiate(drbg, v.hex("Entropy"), v.hex("Nonce"), optional(v, "Personalization"));
        EXPECT_EQ(drbg.reseedCounter, 1u);

        const Buffer first = v.hex("Returned1"), second = v.hex("Returned2");
        EXPECT_EQ(to_hex(generate(drbg, first.size(), optional(v, "Additional1"))), to_hex(first));
        EXPECT_EQ(drbg.reseedCounter, 2u);
        if (v.has("ReseedEntropy")) {
            drbg_reseed(drbg, v.hex("ReseedEntropy"), additional(optional(v, "ReseedAdditional")));
            EXPECT_EQ(drbg.reseedCounter, 1u);
        }
        EXPECT_EQ(to_hex(generate(drbg, second.size(), optional(v, "Additional2"))), to_hex(second));
    }
}

TEST_P(HmacDrbg, TakesTwentyBytesOfAdditionalInputInEveryUse) {
    Buffer longInput(64);
    for (size_t i = 0; i < longInput.size(); i++)
        longInput[i] = static_cast<uint8_t>(i);
    const auto state_after = [&](size_t size) {
        const AdditionalInput input(longInput.data(), size);
        DrbgState drbg = seeded();
        uint8_t out[33];
        drbg_generate(drbg, out, sizeof out, input);
        drbg_reseed(drbg, Buffer(20, 3), input);
        drbg_update(drbg, input);
        return drbg;
    };
    EXPECT_TRUE(same(state_after(21), state_after(20)));
    EXPECT_TRUE(same(state_after(64), state_after(20)));
    EXPECT_FALSE(same(state_after(19), state_after(20)));
    EXPECT_TRUE(AdditionalInput(nullptr, 64).empty());
}

TEST_P(HmacDrbg, ServesARequestForNothing) {
    DrbgState asked = seeded(), unasked = seeded();
    drbg_generate(asked, nullptr, 0, {});
    EXPECT_FALSE(same(asked, unasked));
    EXPECT_EQ(asked.reseedCounter, 2u);
}

TEST_P(HmacDrbg, KnownAnswerTestSeesEveryDamage) {
    EXPECT_EQ(rng_health_check(), 0);
    for (size_t i = 0; i < sizeof kDrbgKnownAnswer; i++) {
        DrbgKnownAnswer damaged = kDrbgKnownAnswer;
        reinterpret_cast<uint8_t*>(&damaged)[i] ^= 0x10;
        EXPECT_FALSE(drbg_reproduces(damaged)) << "byte " << i;
    }
}

#if ZUL_X86_64
TEST(HmacDrbgKernels, MakeTheSameAndNothingBehindIt) {
    if (!sha1_has_shani())
        GTEST_SKIP() << "this processor has one kernel";
    DrbgState expected = seeded(), drbg = expected;
    for (size_t size = 0; size <= 61; size++) {
        for (const bool update : {false, true}) {
            Buffer expectedOut(size + 1, 0xEE), out = expectedOut;
            drbg_produce_portable(expected, expectedOut.data(), size, update);
            drbg_produce_shani(drbg, out.data(), size, update);
            ASSERT_EQ(to_hex(out), to_hex(expectedOut));
            ASSERT_EQ(out[size], 0xEE);
            ASSERT_TRUE(same(drbg, expected)) << size << update;
        }
    }
}
#endif
