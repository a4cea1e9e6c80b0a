#include "frame/err.h"
#include "rng/rng.h"
#include "rsa/rsa_generate.h"
#include "rsa/rsa_pairwise.h"
#include "rsa/rsa_prime.h"
#include "support/unit_test.h"
#include "zulcore.h"

using namespace zul;

namespace {

int random_fill(uint8_t* out, size_t length, const uint8_t* seed, size_t seedLength) {
    return rng_bytes(out, length, seed, seedLength);
}
int zero_fill(uint8_t* out, size_t length, const uint8_t*, size_t) {
    memset(out, 0, length);
    return 0;
}
int attempts = 0;
int ones_fill(uint8_t* out, size_t length, const uint8_t*, size_t) {
    attempts++;
    memset(out, 0xFF, length);
    return 0;
}
int failing_fill(uint8_t*, size_t, const uint8_t*, size_t) {
    return -PRNG_ERR_CATASTROPHIC;
}

std::vector<std::vector<uint8_t>> seedsSeen;
int recording_fill(uint8_t* out, size_t length, const uint8_t* seed, size_t seedLength) {
    seedsSeen.emplace_back(seed, seed + seedLength);
    return rng_bytes(out, length, seed, seedLength);
}

RsaGeneration of_bits(size_t bits, MtFill fill = random_fill) {
    return {
        .bits = bits, .expIndex = 4, .tests = 5, .seed = nullptr, .seedLen = 0, .fill = fill, .options = 0};
}

// value - start for a start of two one bits, zeros and a one bit.
uint32_t distance(const BigInt& value, size_t bits) {
    BigInt start(1), rest;
    mtSetBit(start, bits - 1, 1);
    mtSetBit(start, bits - 2, 1);
    mtSubtract(rest, value, start);
    return static_cast<const MtNumber*>(rest)->digits[0];
}

uint32_t remainder(MT a, DIGIT_T d) {
    BigInt scratch;
    return mtShortMod(scratch, a, d);
}

} // namespace

// The first numbers from the start that pass, found by a few lines of Python.
TEST(RsaGeneratePrime, FindsTheFirstThatPasses) {
    const struct {
        size_t bits;
        DIGIT_T e;
        size_t tests;
        uint32_t distance;
        int examined;
    } cases[] = {{49, 3, 5, 0x10, 9},       {64, 65537, 5, 0x10, 9}, {80, 3, 5, 0x58, 45},
                 {80, 3, 0, 0x2E, 24},      {80, 65537, 0, 0, 1},    {128, 3, 5, 0x3E8, 501},
                 {128, 65537, 5, 0xB4, 91}, {128, 3, 0, 4, 3}};
    for (const auto& c : cases) {
        BigInt p;
        EXPECT_EQ(rsaGeneratePrime(p, c.bits, c.e, c.tests, nullptr, 0, zero_fill, false), c.examined)
            << c.bits;
        EXPECT_EQ(distance(p, c.bits), c.distance) << c.bits;
    }
}

TEST(RsaGeneratePrime, GivesUp) {
    BigInt p;
    attempts = 0;
    EXPECT_EQ(rsaGeneratePrime(p, 64, 3, 5, nullptr, 0, ones_fill, false), -1); // each ends with a carry
    EXPECT_EQ(attempts, 10);
    EXPECT_EQ(rsaGeneratePrime(p, 64, 3, 5, nullptr, 0, failing_fill, false), -1);
    for (size_t bits = 0; bits <= 9; bits++) // the sieve takes the small primes themselves for composite
        EXPECT_EQ(rsaGeneratePrime(p, bits, 3, 5, nullptr, 0, random_fill, false) > 0, bits == 9) << bits;
}

TEST(RsaGenerateKeys, MakesConsistentKeys) {
    for (const size_t bits : {97u, 128u, 255u, 512u}) {
        for (unsigned index = 0; index < 6; index++) {
            RsaGeneration generation = of_bits(bits);
            generation.expIndex = index;
            RsaKey key;
            ASSERT_EQ(rsaGenerateKeys(&key, generation), 0) << bits << ' ' << index << ' ' << err_text();
            EXPECT_EQ(key.flags, 7u);
            EXPECT_EQ(key.bits, mtBitLength(key.n));
            EXPECT_EQ(key.bits, bits); // two factors with two top bits each
            const DIGIT_T e[] = {3, 5, 17, 257, 65537, 65537};
            EXPECT_EQ(mtShortCmp(key.e, e[index]), 0);
            EXPECT_EQ(mtCompare(key.p, key.q), 1);
            EXPECT_EQ(mtBitLength(key.p) + mtBitLength(key.q), bits);
            EXPECT_NE(remainder(key.p, e[index]), 1u);
            EXPECT_NE(remainder(key.q, e[index]), 1u);

            BigInt product, pLess1, qLess1, phi;
            mtMultiply(product, key.p, key.q);
            EXPECT_EQ(mtIsEqual(product, key.n), 1);
            mtShortSub(pLess1, key.p, 1);
            mtShortSub(qLess1, key.q, 1);
            mtMultiply(phi, pLess1, qLess1);
            const struct {
                MT a, b, modulus;
            } inverses[] = {{key.e, key.d, phi},
                            {key.e, key.dP, pLess1},
                            {key.e, key.dQ, qLess1},
                            {key.q, key.qInv, key.p}};
            for (const auto& i : inverses) {
                mtModMult(product, i.a, i.b, i.modulus);
                EXPECT_EQ(mtShortCmp(product, 1), 0);
                EXPECT_EQ(mtCompare(i.b, i.modulus), -1);
            }
        }
    }
}

TEST(RsaGenerateKeys, DrawsForEachPrimeWithAnotherSeed) {
    const uint8_t seed[] = {7, 8};
    RsaGeneration generation = of_bits(128, recording_fill);
    generation.seed = seed;
    generation.seedLen = sizeof seed;
    seedsSeen.clear();
    RsaKey key;
    ASSERT_EQ(rsaGenerateKeys(&key, generation), 0);
    ASSERT_GE(seedsSeen.size(), 2u);
    EXPECT_EQ(seedsSeen.front(), (std::vector<uint8_t>{7, 8, 0x01}));
    EXPECT_EQ(seedsSeen.back(), (std::vector<uint8_t>{7, 8, 0xFF}));
}

TEST(RsaGenerateKeys, TellsWhyItFails) {
    RsaGeneration untested = of_bits(161, zero_fill); // of two different sizes; neither number is prime
    untested.tests = 0;
    const struct {
        RsaGeneration generation;
        int code;
        const char* text;
    } cases[] = {
        {of_bits(128, nullptr), NULL_ERROR, ""},
        {of_bits(3), OUT_OF_RANGE_ERROR, ""},
        {of_bits(4), KEYGEN_FAILED_ERROR, "Too many attempts - we give up this time!"},
        {of_bits(128, ones_fill), KEYGEN_FAILED_ERROR, "Too many attempts - we give up this time!"},
        {of_bits(128, failing_fill), KEYGEN_FAILED_ERROR, "Too many attempts - we give up this time!"},
        {of_bits(128, zero_fill), KEYGEN_FAILED_ERROR, "Problem with RNG: p and q were equal!"},
        {untested, TEST_FAILED_ERROR, ""},
    };
    for (const auto& c : cases) {
        err_clear();
        RsaKey key;
        key.flags = 5;
        EXPECT_EQ(rsaGenerateKeys(&key, c.generation), c.code) << c.text;
        EXPECT_STREQ(err_text(), c.text);
        if (c.code == KEYGEN_FAILED_ERROR) {
            EXPECT_EQ(key.flags, 0u);
        }
    }
    EXPECT_EQ(rsaGenerateKeys(nullptr, of_bits(128)), NULL_ERROR);
}

// Too small to be of use: any result will do, but there has to be one.
TEST(RsaGenerateKeys, EndsForEverySize) {
    for (size_t bits = 4; bits < 64; bits++) {
        RsaKey key;
        const int code = rsaGenerateKeys(&key, of_bits(bits));
        EXPECT_TRUE(code == 0 || code == KEYGEN_FAILED_ERROR || code == TEST_FAILED_ERROR)
            << bits << ' ' << code;
    }
}

TEST(RsaPairwiseTest, FailsForHalvesThatDoNotMatch) {
    RsaKey key;
    ASSERT_EQ(rsaGenerateKeys(&key, of_bits(256)), 0);
    EXPECT_EQ(rsaPairwiseTest(nullptr), NULL_ERROR);
    RsaKey idle; // undoes itself, but only because nothing is encrypted
    idle.flags = kRsaPublic | kRsaPrivate;
    idle.bits = key.bits;
    mtSetEqual(idle.n, key.n);
    mtSetShort(idle.e, 1);
    mtSetShort(idle.d, 1);
    EXPECT_EQ(rsaPairwiseTest(&idle), TEST_FAILED_ERROR);
    EXPECT_EQ(rsaPairwiseTest(&key), 0);
    mtShortAdd(key.dP, key.dP, 2);
    EXPECT_EQ(rsaPairwiseTest(&key), TEST_FAILED_ERROR);
    mtShortSub(key.dP, key.dP, 2);
    key.flags = kRsaPublic;
    EXPECT_EQ(rsaPairwiseTest(&key), BAD_PARAM_ERROR); // of the operation that could not be done
    key.bits = 8;
    EXPECT_EQ(rsaPairwiseTest(&key), BAD_LENGTH_ERROR);
}
