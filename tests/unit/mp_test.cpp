#include <random>

#include "bignum/mp.h"
#include "frame/memory_hooks.h"
#include "platform/cpu.h"
#include "support/unit_test.h"

using namespace zul;

namespace {

using Digits = std::vector<DIGIT_T>; // least significant first

constexpr DIGIT_T kMax = 0xFFFFFFFF;

Digits read(const test::Vector& v, const char* name, size_t n) {
    const std::vector<uint8_t> bytes = v.hex(name);
    Digits digits(n, 0x5A5A5A5A);
    EXPECT_EQ(mpConvFromOctets(digits.data(), n, bytes.data(), bytes.size()),
              std::min(n, (bytes.size() + 3) / 4));
    return digits;
}

size_t digits_of(const test::Vector& v, std::initializer_list<const char*> names) {
    size_t n = 0;
    for (const char* name : names)
        n = std::max(n, (v.hex(name).size() + 3) / 4);
    return n;
}

// Everything is run with and without the kernels of this processor.
template<class Test>
void with_all_kernels(Test test) {
    for (const uint32_t hidden : {0u, uint32_t{kCpuAvx512Ifma}, kCpuAvx512Ifma | kCpuAdx, 0x7FFFFFFFu}) {
        SCOPED_TRACE(hidden);
        cpu_mask_features(hidden);
        test();
    }
    cpu_mask_features(0);
}

} // namespace

TEST(MpVectors, PairsOfNumbers) {
    const auto check = [] {
        for (const auto& v : test::read_vectors("bignum/pairs.txt")) {
            const size_t n = digits_of(v, {"U", "V"}), un = digits_of(v, {"U"}), vn = digits_of(v, {"V"});
            const Digits x = read(v, "U", n), y = read(v, "V", n);
            const Digits product = read(v, "Product", 2 * n), square = read(v, "Square", 2 * n);
            const Digits quotient = read(v, "Quotient", un), inverse = read(v, "Inverse", n);
            Digits wide(2 * n, kMax), q(un, kMax), r(un, kMax), w(n, kMax), squareRest(n, kMax);

            mpMultiply(wide.data(), x.data(), y.data(), n);
            EXPECT_EQ(wide, product);
            mpSquare(wide.data(), x.data(), n);
            EXPECT_EQ(wide, square);
            mpModulo(w.data(), product.data(), 2 * n, y.data(), n);
            EXPECT_EQ(w, Digits(n));
            mpModMult(w.data(), x.data(), x.data(), y.data(), n);
            mpModulo(squareRest.data(), square.data(), 2 * n, y.data(), n);
            EXPECT_EQ(w, squareRest);

            Digits divisor = read(v, "V", vn);
            EXPECT_EQ(mpDivide(q.data(), r.data(), x.data(), un, divisor.data(), vn), 0);
            EXPECT_EQ(q, quotient);
            EXPECT_EQ(r, read(v, "Remainder", un));
            EXPECT_EQ(divisor, read(v, "V", vn));
            mpModulo(divisor.data(), x.data(), un, y.data(), vn); // leading zeros, another length of result
            EXPECT_EQ(divisor, read(v, "Remainder", vn));
            if (vn == 1) {
                EXPECT_EQ(mpShortMod(x.data(), y[0], un), r[0]);
                EXPECT_EQ(mpShortDiv(q.data(), x.data(), y[0], un), r[0]);
                EXPECT_EQ(q, quotient);
            }

            mpGcd(w.data(), x.data(), y.data(), n);
            EXPECT_EQ(w, read(v, "Gcd", n));
            EXPECT_EQ(mpModInv(w.data(), x.data(), y.data(), n), mpIsZero(inverse.data(), n));
            EXPECT_EQ(w, inverse);
        }
    };
    with_all_kernels(check);
}

TEST(MpVectors, Powers) {
    const auto check = [] {
        for (const auto& v : test::read_vectors("bignum/powers.txt")) {
            for (const size_t extra : {0u, 1u}) { // leading zeros
                const size_t n = digits_of(v, {"Base", "Exponent", "Modulus"}) + extra;
                const Digits e = read(v, "Exponent", n), m = read(v, "Modulus", n),
                             power = read(v, "Power", n);
                Digits x = read(v, "Base", n), y(n, kMax);
                EXPECT_EQ(mpModExp(y.data(), x.data(), e.data(), m.data(), n), 0);
                EXPECT_EQ(y, power);
                // A base that is not below the modulus, and the result in its place.
                if (mpAdd(x.data(), x.data(), m.data(), n) == 0) {
                    mpModExp(x.data(), x.data(), e.data(), m.data(), n);
                    EXPECT_EQ(x, power);
                }
            }
        }
    };
    with_all_kernels(check);
}

// Of m = s^2 - c the power s^2 is c: remainders next to 0 and m, where a quotient that is not exact shows.
TEST(MpPowers, NextToMultiplesOfTheModulus) {
    std::mt19937 random{7};
    const auto check = [&random] {
        for (const size_t size : {3u, 4u, 5u, 8u, 9u, 16u, 17u, 24u, 31u, 32u, 33u, 48u, 56u, 57u, 64u, 127u})
            for (const DIGIT_T kind : {0u, 1u, 2u, 3u})
                for (const int c : {-1, 0, 1}) {
                    SCOPED_TRACE(testing::Message() << size << " digits, kind " << kind << ", " << c);
                    const size_t n = 2 * size;
                    Digits s(n), m(n), e(n), y(n, kMax), expected(n);
                    for (size_t i = 0; i < size; i++)
                        s[i] = kind == 0 ? kMax : kind == 1 ? 0 : static_cast<DIGIT_T>(random());
                    s[0] |= 1;
                    s[size - 1] |= kind == 3 ? 1 : 0x80000000;
                    mpSquare(m.data(), s.data(), size);
                    if (c < 0)
                        ASSERT_EQ(mpShortAdd(m.data(), m.data(), 1, n), 0u);
                    else
                        mpShortSub(m.data(), m.data(), static_cast<DIGIT_T>(c), n);
                    if (c < 0)
                        mpShortSub(expected.data(), m.data(), 1, n);
                    else
                        expected[0] = static_cast<DIGIT_T>(c);
                    e[0] = 2;
                    mpModExp(y.data(), s.data(), e.data(), m.data(), n);
                    ASSERT_EQ(y, expected);
                    e[0] = 65537; // c to an even power, times s
                    mpModExp(y.data(), s.data(), e.data(), m.data(), n);
                    ASSERT_EQ(y, c == 0 ? Digits(n) : s);
                }
    };
    with_all_kernels(check);
}

TEST(MpEdges, ExponentsZeroAndOneReduceNothing) {
    const Digits x{7, 9}, one{1, 0}, zero{0, 0};
    Digits y(2, kMax);
    for (const Digits& m : {one, zero, Digits{3, 0}}) {
        EXPECT_EQ(mpModExp(y.data(), x.data(), zero.data(), m.data(), 2), 1);
        EXPECT_EQ(y, one);
        EXPECT_EQ(mpModExp(y.data(), x.data(), one.data(), m.data(), 2), 1);
        EXPECT_EQ(y, x);
    }
}

TEST(MpEdges, NumbersWithoutDigitsAndDivisionByZero) {
    const Digits zero{0, 0}, u{5, 6};
    EXPECT_EQ(mpIsZero(u.data(), 0), -1);
    EXPECT_EQ(mpBitLength(nullptr, 5), 0u);
    EXPECT_EQ(mpShortCmp(u.data(), 0, 0), 0);
    EXPECT_EQ(mpShortCmp(u.data(), 1, 0), -1);
    EXPECT_EQ(mpShortCmp(u.data(), 6, 2), 1);
    Digits q{1, 1}, r{1, 1};
    EXPECT_EQ(mpDivide(q.data(), r.data(), u.data(), 2, zero.data(), 2), -1);
    EXPECT_EQ(q, zero);
    EXPECT_EQ(r, zero);
    EXPECT_EQ(mpShortDiv(q.data(), u.data(), 0, 2), 0u);
    EXPECT_EQ(mpShortMod(u.data(), 0, 2), 0u);
    EXPECT_EQ(mpModInv(q.data(), u.data(), u.data(), 0), 1);
}

TEST(MpEdges, CarriesRunThroughAndComeBack) {
    const Digits ones{kMax, kMax, kMax}, one{1, 0, 0}, zero{0, 0, 0};
    Digits w = ones;
    EXPECT_EQ(mpAdd(w.data(), w.data(), one.data(), 3), 1u);
    EXPECT_EQ(w, zero);
    EXPECT_EQ(mpSubtract(w.data(), w.data(), one.data(), 3), 1u);
    EXPECT_EQ(w, ones);
    EXPECT_EQ(mpShortAdd(w.data(), w.data(), 2, 3), 1u);
    EXPECT_EQ(w, one);
    EXPECT_EQ(mpShortSub(w.data(), w.data(), 2, 3), 1u);
    EXPECT_EQ(w, ones);
    EXPECT_EQ(mpShortMult(w.data(), w.data(), kMax, 3), kMax - 1);
    EXPECT_EQ(w, (Digits{1, kMax, kMax}));
}

TEST(MpEdges, ShiftsByAnyNumberOfBits) {
    struct Case {
        size_t shift;
        Digits left;
        DIGIT_T leftOut;
        Digits right;
        DIGIT_T rightOut;
    };
    const Digits b{0x12345678, 0x00000001, 0xF0000002};
    const Case cases[] = {
        {0, b, 0, b, 0},
        {1, {0x2468ACF0, 2, 0xE0000004}, 1, {0x891A2B3C, 0, 0x78000001}, 0},
        {31, {0, 0x891A2B3C, 0}, 0x78000001, {2, 0xE0000004, 1}, 0x12345678},
        {32, {0, 0x12345678, 1}, 0xF0000002, {1, 0xF0000002, 0}, 0x12345678},
        {36, {0, 0x23456780, 0x11}, 0x20, {0x20000000, 0x0F000000, 0}, 0x11234567},
        {95, {0, 0, 0}, 0x891A2B3C, {1, 0, 0}, 0xE0000004},
        {96, {0, 0, 0}, 0x12345678, {0, 0, 0}, 0xF0000002},
        {200, {0, 0, 0}, 0, {0, 0, 0}, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.shift);
        Digits a = b;
        EXPECT_EQ(mpShiftLeft(a.data(), a.data(), c.shift, 3), c.leftOut);
        EXPECT_EQ(a, c.left);
        a = b;
        EXPECT_EQ(mpShiftRight(a.data(), a.data(), c.shift, 3), c.rightOut);
        EXPECT_EQ(a, c.right);
    }
    Digits a = b;
    EXPECT_EQ(mpSetBit(a.data(), 3, 96, 1), -1);
    EXPECT_EQ(a, b);
    EXPECT_EQ(mpSetBit(a.data(), 3, 95, 0), 0);
    EXPECT_EQ(mpSetBit(a.data(), 3, 63, 2), 0);
    EXPECT_EQ(a, (Digits{0x12345678, 0x80000001, 0x70000002}));
}

TEST(MpEdges, BytesThatAreTooManyOrTooFew) {
    const uint8_t bytes[] = {0xAA, 0x11, 0x22, 0x33, 0x44, 0x55};
    Digits a(2, kMax);
    EXPECT_EQ(mpConvFromOctets(a.data(), 1, bytes, 6), 1u);
    EXPECT_EQ(a, (Digits{0x22334455, kMax}));
    EXPECT_EQ(mpConvFromOctets(a.data(), 2, bytes, 3), 1u);
    EXPECT_EQ(a, (Digits{0xAA1122, 0}));
    mpConvFromOctets(a.data(), 2, bytes, 6);
    std::vector<uint8_t> out(9, 0xEE);
    EXPECT_EQ(mpConvToOctets(a.data(), 2, out.data(), 9), 6u);
    EXPECT_EQ(test::to_hex(out), "000000aa1122334455");
    EXPECT_EQ(mpConvToOctets(a.data(), 2, out.data(), 5), 6u);
    EXPECT_EQ(test::to_hex(out), "112233445522334455");
}

TEST(MpPrime, TellsPrimesFromComposites) {
    // The greatest prime of one digit; 2^61 - 1; 2^127 - 1 with a leading zero.
    const Digits primes[] = {
        {3}, {5}, {65537}, {0xFFFFFFFB}, {kMax, 0x1FFFFFFF}, {kMax, kMax, kMax, kMax >> 1, 0}};
    // A Carmichael number; what passes for the first four primes, for the first nine; 2^64 + 1;
    // (2^61 - 1) * (2^31 - 1).
    const Digits others[] = {{0, 0},
                             {1},
                             {4},
                             {9},
                             {1000000006},
                             {561},
                             {3215031751},
                             {1, 0, 1},
                             {0x4F9AF9FB, 0x35159127},
                             {0x80000001, 0xDFFFFFFF, 0x0FFFFFFF}};
    for (const Digits& w : primes)
        EXPECT_EQ(mpRabinMiller(w.data(), w.size(), 20), 1) << w[0];
    for (const Digits& w : others)
        EXPECT_EQ(mpRabinMiller(w.data(), w.size(), 50), 0) << w[0];
}

namespace {

size_t smallestBlock;
int taken, freed, dirty;

bool note_size(size_t size) {
    smallestBlock = std::min(smallestBlock, size);
    taken++;
    return false;
}

void look_at_freed(void* block) {
    freed++;
    dirty += !test::is_zero(block, smallestBlock);
}

} // namespace

TEST(MpScratch, IsWipedBeforeItIsFreed) {
    const Digits x(9, 0xDEADBEEF), e(9, 0x5EC2E75E), m(9, 0xF00DF00D);
    const auto check = [&] {
        smallestBlock = SIZE_MAX;
        taken = freed = dirty = 0;
        Digits y(9), r(9);
        memory_set_hooks({note_size, look_at_freed});
        DIGIT_T* secret = mpAlloc(9);
        mpSetEqual(secret, x.data(), 9);
        mpFree(&secret, 9);
        EXPECT_EQ(secret, nullptr);
        mpModExp(y.data(), x.data(), e.data(), m.data(), 9);
        mpModMult(y.data(), x.data(), e.data(), m.data(), 9);
        static_cast<void>(mpDivide(y.data(), r.data(), x.data(), 9, Digits{5, 7, 9}.data(), 3));
        mpModulo(y.data(), x.data(), 9, e.data(), 9);
        static_cast<void>(mpModInv(y.data(), x.data(), m.data(), 9));
        mpGcd(y.data(), x.data(), m.data(), 9);
        static_cast<void>(mpRabinMiller(m.data(), 9, 1));
        memory_set_hooks({});
        EXPECT_GE(taken, 8);
        EXPECT_EQ(freed, taken);
        EXPECT_EQ(dirty, 0);
    };
    with_all_kernels(check);
}
