#include <random>

#include "rsa/rsa_blinding.h"
#include "rsa/rsa_operation.h"
#include "rsa/short_inverse.h"
#include "support/unit_test.h"
#include "zulcore.h"

using namespace zul;

namespace {

struct Part {
    const char* name;
    BigInt RsaKey::*value;
};
constexpr Part kParts[] = {{"n", &RsaKey::n},   {"e", &RsaKey::e},      {"d", &RsaKey::d},
                           {"p", &RsaKey::p},   {"q", &RsaKey::q},      {"dP", &RsaKey::dP},
                           {"dQ", &RsaKey::dQ}, {"qInv", &RsaKey::qInv}};

void load(RsaKey& key, const test::Vector& v) {
    for (const Part& part : kParts) {
        const Bytes bytes = v.hex(part.name);
        mtConvFromOctets(key.*part.value, bytes.data(), bytes.size());
    }
    key.bits = mtBitLength(key.n);
    key.flags = kRsaPublic | kRsaPrivate | kRsaCrt;
}

using Operation = int (*)(const RsaKey*, uint8_t*, size_t*, const uint8_t*, size_t);

Bytes result(Operation operation, const RsaKey& key, const Bytes& input) {
    Bytes out(key.bytes());
    size_t length = 0;
    EXPECT_EQ(operation(&key, out.data(), &length, input.data(), input.size()), 0);
    EXPECT_EQ(length, out.size());
    return out;
}

int code(Operation operation, const RsaKey* key, const Bytes& input) {
    Bytes out(key == nullptr ? 1 : key->bytes());
    size_t length = 0;
    return operation(key, out.data(), &length, input.data(), input.size());
}

void expect_ordinary(RsaKey& key, const test::Vector& v) {
    for (const char* number : {"0", "1", "2", "3", "4", "5", "6"}) {
        const Bytes m = v.hex(std::string("m") + number), c = v.hex(std::string("c") + number);
        EXPECT_EQ(result(rsaPublic, key, m), c);
        EXPECT_EQ(result(rsaPrivate, key, c), m);
        Bytes padded(key.bytes() - c.size()), blinded(key.bytes());
        padded.insert(padded.end(), c.begin(), c.end());
        EXPECT_EQ(rsa_private_blinded(key, blinded.data(), padded.data()), 0);
        EXPECT_EQ(blinded, m);
        key.flags &= ~uint32_t{kRsaCrt};
        EXPECT_EQ(result(rsaPrivate, key, c), m);
        key.flags |= kRsaCrt;
    }
}

void expect_refusals(RsaKey& key, const Bytes& n) {
    Bytes above = n;
    above.insert(above.begin(), 1);
    for (const Operation operation : {rsaPublic, rsaPrivate}) {
        EXPECT_EQ(code(operation, &key, n), OUT_OF_RANGE_ERROR);
        EXPECT_EQ(code(operation, &key, above), OUT_OF_RANGE_ERROR);
        EXPECT_EQ(code(operation, nullptr, n), NULL_ERROR);
    }
    key.flags = kRsaPublic;
    EXPECT_EQ(code(rsaPrivate, &key, {1}), BAD_PARAM_ERROR);
    key.flags = kRsaPrivate | kRsaCrt;
    EXPECT_EQ(code(rsaPublic, &key, {1}), BAD_PARAM_ERROR);
}

// Whichever part does not belong to the others: a number below n, or a code; and no wrong CRT result.
void expect_survival(const test::Vector& v) {
    const Bytes input = v.hex("m5");
    RsaKey right;
    load(right, v);
    for (const Part& part : kParts) {
        const Bytes good = v.hex(part.name);
        Bytes even = good, longer(good.size() + 9, 0xFD);
        even.back() ^= 1;
        for (const Bytes& bad : {Bytes{0}, Bytes{1}, Bytes{2}, even, longer}) {
            SCOPED_TRACE(part.name + (" = " + test::to_hex(bad)));
            RsaKey key;
            load(key, v);
            mtConvFromOctets(key.*part.value, bad.data(), bad.size());
            if (mtIsEqual(key.n, right.n) != 0) {
                Bytes padded(key.bytes() - input.size()), blinded(key.bytes());
                padded.insert(padded.end(), input.begin(), input.end());
                const bool isMade = rsa_private_blinded(key, blinded.data(), padded.data()) == 0;
                EXPECT_EQ(isMade ? result(rsaPublic, key, blinded) : blinded,
                          isMade ? padded : Bytes(key.bytes()));
            }
            for (const uint32_t flags : {kRsaPublic | kRsaPrivate | kRsaCrt, kRsaPublic | kRsaPrivate}) {
                key.flags = flags;
                for (const Operation operation : {rsaPublic, rsaPrivate}) {
                    if (code(operation, &key, input) != 0)
                        continue;
                    BigInt number;
                    const Bytes out = result(operation, key, input);
                    mtConvFromOctets(number, out.data(), out.size());
                    EXPECT_LT(mtCompare(number, key.n), 0);
                    const bool isCrt = operation == rsaPrivate && (flags & kRsaCrt) != 0;
                    if (isCrt && std::string_view("n p q").find(part.name) == std::string_view::npos) {
                        EXPECT_EQ(result(rsaPublic, right, out), input); // never a wrong CRT result
                    }
                }
            }
        }
    }
}

// With d and e exchanged the public exponent is as long as the modulus.
void expect_long_exponents(const test::Vector& v) {
    RsaKey key;
    load(key, v);
    key.e.swap(key.d);
    const std::pair<MT, MT> residues[] = {{key.dP, key.p}, {key.dQ, key.q}};
    for (const auto& [exponent, prime] : residues) {
        BigInt less1;
        mtShortSub(less1, prime, 1);
        mtModulo(exponent, key.d, less1);
    }
    const Bytes m = v.hex("m5"), c = result(rsaPublic, key, m);
    EXPECT_EQ(result(rsaPrivate, key, c), m);
    for (const auto& [exponent, prime] : residues) {
        mtShortAdd(exponent, exponent, 2);
        EXPECT_EQ(code(rsaPrivate, &key, c), TEST_FAILED_ERROR);
        mtShortSub(exponent, exponent, 2);
    }
}

} // namespace

TEST(RsaOperation, InvertsShortFactors) {
    std::mt19937_64 random(1);
    for (const size_t digits : {1u, 2u, 3u, 8u, 9u, 31u, 32u, 64u, 97u, 512u}) {
        for (int round = 0; round < 40; round++) {
            BigInt n, factor, product, inverse;
            Bytes bytes(4 * digits), rBytes(sizeof(ShortFactor));
            for (uint8_t& byte : bytes)
                byte = static_cast<uint8_t>(round % 4 == 0 ? 0xFF : random());
            for (uint8_t& byte : rBytes)
                byte = static_cast<uint8_t>(round % 5 == 0 ? 0xFF : round % 5 == 1 ? 0 : random());
            rBytes[0] |= 0x80;
            rBytes.back() |= 1;
            ShortFactor r;
            limbs_read(r, rBytes.data(), rBytes.size());
            mtConvFromOctets(n, bytes.data(), bytes.size());
            mtConvFromOctets(factor, rBytes.data(), rBytes.size());
            mtGcd(product, factor, n);
            if (mtShortCmp(product, 1) != 0)
                continue;
            short_inverse(inverse, r, n);
            EXPECT_LT(mtCompare(inverse, n), 0);
            mtModulo(factor, factor, n);
            mtModMult(product, factor, inverse, n);
            EXPECT_EQ(mtShortCmp(product, 1), 0) << test::to_hex(bytes) << " " << test::to_hex(rBytes);
        }
    }
}

TEST(RsaOperation, HoldsForOrdinaryForeignAndContradictoryKeys) {
    for (const auto& v : test::read_vectors("rsa_ops/raw.txt")) {
        RsaKey key;
        load(key, v);
        expect_ordinary(key, v);
        expect_refusals(key, v.hex("n"));
        expect_survival(v);
        if (key.bits > 128)
            expect_long_exponents(v);
    }
}
