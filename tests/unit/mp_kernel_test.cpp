#include <random>

#include "bignum/mp_exp_x86.h"
#include "bignum/mp_kernel.h"
#include "bignum/mp_portable.h"
#include "platform/cpu.h"
#include "support/unit_test.h"

#if ZUL_X86_64
#include "bignum/mp_block_division_x86.h"
#include "bignum/mp_limb_product_x86.h"

namespace zul {

namespace {

using Digits = std::vector<DIGIT_T>;

// Numbers on which carries run far and quotient digits are extreme.
class Patterns {
  public:
    Digits number(size_t n) {
        constexpr DIGIT_T kEdges[] = {0, 1, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFE, 0xFFFFFFFF};
        Digits a(n);
        const DIGIT_T kind = next() % 4;
        size_t run = 0;
        bool ones = false;
        for (size_t bit = 0; bit < 32 * n; bit++, run--) {
            if (run == 0) {
                run = next() % (2 * 32 * n) % 150 + 1;
                ones = !ones;
            }
            a[bit / 32] |= static_cast<DIGIT_T>(ones) << bit % 32;
        }
        for (DIGIT_T& digit : a)
            digit = kind == 0 ? kEdges[next() % 6] : kind == 1 ? next() : digit;
        if (kind == 2)
            a.assign(n, 0xFFFFFFFF), a[next() % n] = next();
        return a;
    }
    // A number of exactly so many bits.
    Digits of_bits(size_t bits, size_t n) {
        Digits a = number(n);
        for (size_t i = bits; i < 32 * n; i++)
            static_cast<void>(mpSetBit(a.data(), n, i, 0));
        static_cast<void>(mpSetBit(a.data(), n, bits - 1, 1));
        return a;
    }
    Digits below(const Digits& m) {
        const size_t n = m.size();
        Digits a = number(n);
        if (next() % 3 == 0)
            mpShortSub(a.data(), m.data(), next() % 2 + 1, n);
        Digits rest(n);
        mpModulo(rest.data(), a.data(), n, m.data(), n);
        return rest;
    }

  private:
    DIGIT_T next() { return static_cast<DIGIT_T>(random_()); }

    std::mt19937 random_{20};
};

class MpKernel : public testing::Test {
  protected:
    void SetUp() override {
        if (!mp_kernel_usable())
            GTEST_SKIP() << "this processor does not have it";
    }
    void TearDown() override { cpu_mask_features(0); }

    Patterns patterns_;
};

TEST_F(MpKernel, ProductsEqualThePortableOnes) {
    for (size_t n = 1; n <= 130; n++)
        for (int round = 0; round < 8; round++) {
            const Digits u = patterns_.number(n), v = patterns_.number(n);
            Digits expected(2 * n), product(2 * n, 0xAAAAAAAA), square = product;
            mp_portable_multiply(expected.data(), u.data(), v.data(), n);
            mp_kernel_multiply(product.data(), u.data(), v.data(), n);
            ASSERT_EQ(product, expected) << n << " digits";
            mp_portable_square(expected.data(), u.data(), n);
            mp_kernel_square(square.data(), u.data(), n);
            ASSERT_EQ(square, expected) << n << " digits";
        }
}

// The sizes of every kernel and those next to them, in digit arrays that may be longer than the number.
TEST_F(MpKernel, PowersEqualThePortableOnes) {
    std::vector<size_t> sizes{34, 64, 65, 127, 129, 199, 200, 4097};
    for (size_t limb = 4; limb <= 64; limb++)
        sizes.insert(sizes.end(), {64 * limb - 63, 64 * limb - 32, 64 * limb - 1, 64 * limb});
    for (const size_t most : {271u, 526u, 781u, 1036u, 1546u, 2056u, 3076u, 4096u})
        sizes.insert(sizes.end(), {most, most + 1});
    for (const size_t bits : sizes)
        for (size_t round = 0; round < 4; round++) {
            const size_t n = (bits + 31) / 32 + round % 2;
            const Digits m = patterns_.of_bits(bits, n), x = patterns_.below(m);
            const Digits e = patterns_.of_bits(round == 3 && bits < 1024 ? bits : 2 + bits % 17 + round, n);
            Digits expected(n), y(n, 0xAAAAAAAA), z = y;
            cpu_mask_features(kCpuAdx);
            ASSERT_EQ(mpModExp(expected.data(), x.data(), e.data(), m.data(), n), 0);
            cpu_mask_features(kCpuAvx512Ifma);
            mp_kernel_mod_exp(y.data(), x.data(), e.data(), m.data(), n);
            ASSERT_EQ(y, expected) << bits << " bits";
            cpu_mask_features(0);
            mp_kernel_mod_exp(z.data(), x.data(), e.data(), m.data(), n);
            ASSERT_EQ(z, expected) << bits << " bits";

            // Beside one of another exponent, and of a modulus that may have another length.
            const Digits m2 = patterns_.of_bits(bits - round % 3, n), x2 = patterns_.below(m2);
            const Digits e2 = patterns_.of_bits(round == 2 ? 32 * n : 1 + (bits + round) % 40 % (32 * n), n);
            Digits second(n), y2(n, 0xAAAAAAAA);
            y.assign(n, 0xAAAAAAAA);
            static_cast<void>(mpModExp(second.data(), x2.data(), e2.data(), m2.data(), n));
            mpModExpPair({y.data(), x.data(), e.data(), m.data()},
                         {y2.data(), x2.data(), e2.data(), m2.data()}, n);
            ASSERT_EQ(y, expected) << bits << " bits";
            ASSERT_EQ(y2, second) << bits << " bits";
        }
}

// Dividends q * N + r with the remainders next to 0 and N: where the guard of a quotient digit cannot decide,
// and where a wrong digit would show. Quotients with limbs of zeros or ones bring the digits before the last
// there.
TEST_F(MpKernel, BlockDivisionIsExactNextToMultiples) {
    for (const size_t n : {8u, 16u, 24u, 32u, 40u, 64u})
        for (int round = 0; round < 60; round++) {
            Digits divisor = patterns_.of_bits(64 * n, 2 * n);
            const Digits quotient = patterns_.below(Digits(2 * n, 0xFFFFFFFF));
            std::vector<uint64_t> negative(n), state(BlockDivisor::kStateLimbs), scratch(n + 9);
            const BlockDivisor by =
                block_divisor(limbs_of(divisor.data()), n, negative.data(), state.data(), scratch.data());
            for (const int nearness : {0, 1, -1, -2}) {
                Digits remainder(2 * n), dividend(4 * n);
                if (nearness < 0)
                    mpShortSub(remainder.data(), divisor.data(), static_cast<DIGIT_T>(-nearness), 2 * n);
                else
                    remainder[0] = static_cast<DIGIT_T>(nearness);
                mp_portable_multiply(dividend.data(), quotient.data(), divisor.data(), 2 * n);
                const DIGIT_T carry = mpAdd(dividend.data(), dividend.data(), remainder.data(), 2 * n);
                mpShortAdd(dividend.data() + 2 * n, dividend.data() + 2 * n, carry, 2 * n);
                block_reduce(by, limbs_of(dividend.data()));
                dividend.resize(2 * n);
                ASSERT_EQ(dividend, remainder) << n << " limbs, remainder next to " << nearness;
            }
        }
}

} // namespace

} // namespace zul
#endif
