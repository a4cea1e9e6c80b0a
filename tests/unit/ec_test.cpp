#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "ec/ecdsa.h"
#include "ec/ed25519.h"
#include "ec/edwards.h"
#include "ec/p256_field.h"
#include "ec/p384_field.h"
#include "ec/p521_field.h"
#include "ec/x25519.h"
#include "hash/digest.h"
#include "key/ecdsa_der.h"
#include "support/hidden_features.h"
#include "support/vectors.h"

namespace zul {
namespace {

using Bytes = std::vector<uint8_t>;

constexpr EcCurve kCurves[] = {EcCurve::p256, EcCurve::p384, EcCurve::p521};

// The tests of this fixture run once with every feature and once for each that a kernel asks for without it.
class EcKernels : public test::HiddenFeatures {};

EcCurve curve_of(const test::Vector& v) {
    return static_cast<EcCurve>(v.number("Curve"));
}

Bytes digest_of(const std::string& message, int algorithm) {
    Bytes digest(kMaxDigestSize);
    digest.resize(static_cast<size_t>(hash_bytes(digest.data(), kMaxDigestSize, message.data(),
                                                 static_cast<int64_t>(message.size()), algorithm)));
    return digest;
}

template<class Field>
Bytes modulus(bool isOrder) {
    Bytes bytes((Field::kBits + 7) / 8);
    limbs_write(bytes.data(), bytes.size(), isOrder ? Field::kOrder.p : Field::kPrime);
    return bytes;
}
Bytes modulus(EcCurve curve, bool isOrder) {
    return curve == EcCurve::p256   ? modulus<P256Field>(isOrder)
           : curve == EcCurve::p384 ? modulus<P384Field>(isOrder)
                                    : modulus<P521Field>(isOrder);
}

Bytes small(size_t size, uint8_t value) {
    Bytes bytes(size);
    bytes.back() = value;
    return bytes;
}
Bytes difference(const Bytes& a, const Bytes& b) {
    Bytes result(a.size());
    int borrow = 0;
    for (size_t i = a.size(); i-- > 0;) {
        const int digit = a[i] - b[i] - borrow;
        borrow = digit < 0 ? 1 : 0;
        result[i] = static_cast<uint8_t>(digit);
    }
    return result;
}
Bytes half(const Bytes& a) {
    Bytes result(a.size());
    for (size_t i = 0; i < a.size(); i++)
        result[i] = static_cast<uint8_t>(a[i] >> 1 | (i > 0 ? a[i - 1] << 7 : 0));
    return result;
}

Bytes public_of(const EcOperations& ec, const Bytes& d) {
    Bytes point(2 * ec.bytes);
    ec.public_key(point.data(), d.data());
    return point;
}
std::string agreed(const EcOperations& ec, const Bytes& d, const Bytes& point) {
    Bytes x(ec.bytes);
    ec.agree(x.data(), d.data(), point.data());
    return test::to_hex(x);
}
std::string x_of(const Bytes& point) {
    return test::to_hex(point.data(), point.size() / 2);
}
Bytes joined(Bytes a, const Bytes& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

// What the windows of a multiple may get wrong: both ends and the middle of the range, every digit, and long
// runs of ones and zeros.
std::vector<Bytes> edge_scalars(EcCurve curve) {
    const Bytes n = modulus(curve, true);
    const size_t size = n.size();
    std::vector<Bytes> scalars;
    for (uint8_t d = 1; d <= 34; d++)
        scalars.push_back(small(size, d));
    for (const uint8_t d : {uint8_t{1}, uint8_t{2}, uint8_t{3}, uint8_t{31}})
        scalars.push_back(difference(half(n), small(size, d)));
    scalars.push_back(half(n)); // (n - 1) / 2
    for (size_t bit = 7; bit < 8 * size - 8; bit += 29) {
        Bytes power(size);
        power[size - 1 - bit / 8] = static_cast<uint8_t>(1 << bit % 8);
        scalars.push_back(power);
        scalars.push_back(difference(power, small(size, 1)));
    }
    return scalars;
}

bool ed25519_good(const Bytes& signature, const Bytes& key, const Bytes& message, Ed25519Form form) {
    Ed25519Bytes bytes(message.data(), message.size());
    bool unread = false;
    return ed25519_verify(signature.data(), key.data(), bytes, form, &unread);
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Hidden, EcKernels,
                         testing::Values(0, kCpuAdx, kCpuAvx512Ifma, kCpuAvx2 | kCpuAvx512Ifma));

TEST_P(EcKernels, SignAsRfc6979) {
    for (const auto& v : test::read_vectors("ec/ecdsa_rfc6979.txt")) {
        const EcOperations& ec = ec_operations(curve_of(v));
        const Bytes d = v.hex("Private"), point = joined(v.hex("X"), v.hex("Y"));
        const int algorithm = static_cast<int>(v.number("Hash"));
        Bytes digest = digest_of(v.text("Message"), algorithm), rs(2 * ec.bytes);
        EXPECT_EQ(public_of(ec, d), point);
        ASSERT_EQ(
            ecdsa_sign(rs.data(), curve_of(v), d.data(), digest.data(), digest.size(), algorithm, nullptr),
            0);
        EXPECT_EQ(test::to_hex(rs), test::to_hex(v.hex("Signature")));
        EXPECT_TRUE(ecdsa_verify(rs.data(), curve_of(v), point.data(), digest.data(), digest.size()));
        digest[0] ^= 0x80;
        EXPECT_FALSE(ecdsa_verify(rs.data(), curve_of(v), point.data(), digest.data(), digest.size()));

        const bool isOdd = (point.back() & 1) != 0;
        Bytes restored(2 * ec.bytes), opposite(2 * ec.bytes);
        EXPECT_TRUE(ec.decompress(restored.data(), point.data(), isOdd));
        EXPECT_EQ(restored, point);
        EXPECT_TRUE(ec.decompress(opposite.data(), point.data(), !isOdd));
        EXPECT_TRUE(ec.point_is_valid(opposite.data()) && x_of(opposite) == x_of(point) && opposite != point);
    }
}

TEST_P(EcKernels, TakeAPointWhoseXIsBeyondTheOrder) {
    const Bytes digest = digest_of("sample", kDigestSha256);
    for (const auto& v : test::read_vectors("ec/ecdsa_beyond_order.txt"))
        EXPECT_TRUE(ecdsa_verify(v.hex("Signature").data(), curve_of(v), v.hex("Public").data(),
                                 digest.data(), digest.size()));
}

TEST_P(EcKernels, MultiplyByEveryEdge) {
    for (const EcCurve curve : kCurves) {
        const EcOperations& ec = ec_operations(curve);
        const Bytes n = modulus(curve, true), p = modulus(curve, false), one = small(ec.bytes, 1);
        const Bytes base = public_of(ec, one),
                    other = public_of(ec, Bytes(ec.bytes, 0x55 >> (curve == EcCurve::p521)));
        EXPECT_EQ(agreed(ec, one, base), x_of(base));
        EXPECT_EQ(agreed(ec, difference(n, one), other), x_of(other));
        for (const Bytes& d : edge_scalars(curve)) {
            SCOPED_TRACE(std::to_string(ec.bits) + ": " + test::to_hex(d));
            const Bytes opposite = difference(n, d), point = public_of(ec, d),
                        mirrored = public_of(ec, opposite);
            EXPECT_TRUE(ec.scalar_is_valid(d.data()) && ec.scalar_is_valid(opposite.data()));
            EXPECT_TRUE(ec.point_is_valid(point.data()));
            EXPECT_EQ(x_of(mirrored), x_of(point));
            EXPECT_EQ(difference(p, Bytes(point.begin() + static_cast<ptrdiff_t>(ec.bytes), point.end())),
                      Bytes(mirrored.begin() + static_cast<ptrdiff_t>(ec.bytes), mirrored.end()));
            EXPECT_EQ(agreed(ec, d, base), x_of(point));
            EXPECT_EQ(agreed(ec, opposite, base), x_of(point));
            EXPECT_EQ(agreed(ec, d, other), agreed(ec, opposite, other));
            EXPECT_EQ(agreed(ec, d, other),
                      agreed(ec, Bytes(ec.bytes, 0x55 >> (curve == EcCurve::p521)), point));

            // With the key 1 or n - 1 the two multiples of a verification are of the same or of opposite
            // points.
            const Bytes digest = small(32, 3);
            for (const Bytes& key : {one, difference(n, one), d}) {
                Bytes rs(2 * ec.bytes);
                EXPECT_TRUE(ec.sign(rs.data(), key.data(), opposite.data(), digest.data(), digest.size()));
                EXPECT_TRUE(ec.verify(rs.data(), public_of(ec, key).data(), digest.data(), digest.size()));
            }
        }
    }
}

TEST_P(EcKernels, RefuseWhatIsOutOfRange) {
    for (const EcCurve curve : kCurves) {
        SCOPED_TRACE(static_cast<int>(curve));
        const EcOperations& ec = ec_operations(curve);
        const Bytes n = modulus(curve, true), p = modulus(curve, false), one = small(ec.bytes, 1);
        const Bytes zero(ec.bytes), ones(ec.bytes, 0xFF), base = public_of(ec, one), digest = small(32, 5);
        for (const Bytes& d : {zero, n, ones})
            EXPECT_FALSE(ec.scalar_is_valid(d.data()));

        // The sum of the multiples is at infinity for r = n - e and the key 1.
        EXPECT_FALSE(
            ec.verify(joined(difference(n, small(ec.bytes, 5)), one).data(), base.data(), digest.data(), 32));
        Bytes rs(2 * ec.bytes), result(2 * ec.bytes);
        ASSERT_TRUE(
            ec.sign(rs.data(), one.data(), one.data(), digest.data(), 32)); // r is x of the base point
        const Bytes r(rs.begin(), rs.begin() + static_cast<ptrdiff_t>(ec.bytes));
        const Bytes s(rs.begin() + static_cast<ptrdiff_t>(ec.bytes), rs.end());
        EXPECT_TRUE(ec.verify(joined(r, s).data(), base.data(), digest.data(), 32));
        EXPECT_TRUE(ec.verify(joined(r, difference(n, s)).data(), base.data(), digest.data(), 32));
        for (const Bytes& bad : {zero, n, ones, difference(r, one)}) {
            EXPECT_FALSE(ec.verify(joined(bad, s).data(), base.data(), digest.data(), 32));
            EXPECT_FALSE(ec.verify(joined(r, bad).data(), base.data(), digest.data(), 32));
        }
        // s + n would do if it were not compared with n.
        const Bytes sum = difference(s, difference(zero, n));
        EXPECT_FALSE(ec.verify(joined(r, sum).data(), base.data(), digest.data(), 32));

        // Of the coordinates p + x no check but the comparison tells; 0 has a y on all three curves.
        for (const bool isOdd : {false, true}) {
            ASSERT_TRUE(ec.decompress(result.data(), zero.data(), isOdd));
            EXPECT_TRUE(ec.point_is_valid(result.data()));
            memcpy(result.data(), p.data(), ec.bytes);
            EXPECT_FALSE(ec.point_is_valid(result.data()));
            EXPECT_FALSE(ec.decompress(result.data(), p.data(), isOdd));
        }
        Bytes off = base;
        off.back() ^= 1;
        for (const Bytes& bad : {off, Bytes(2 * ec.bytes), joined(r, ones), joined(ones, r), joined(r, p)})
            EXPECT_FALSE(ec.point_is_valid(bad.data()));
        size_t withoutRoot = 0;
        for (uint8_t x = 0; x < 40; x++)
            withoutRoot += ec.decompress(result.data(), small(ec.bytes, x).data(), false) ? 0u : 1u;
        EXPECT_GT(withoutRoot, 8u);
        EXPECT_LT(withoutRoot, 32u);
    }
}

TEST_P(EcKernels, AgreeOverX25519AsRfc7748) {
    for (const auto& v : test::read_vectors("ec/x25519_rfc7748.txt")) {
        Bytes k = v.hex("Private"), u = v.hex("U"), product(kX25519Bytes);
        for (long long times = v.number("Times"); times > 0; times--) {
            ASSERT_TRUE(x25519(product.data(), k.data(), u.data()));
            u = k;
            k = product;
        }
        EXPECT_EQ(test::to_hex(product), v.text("Product"));
    }
    // Points of small order, also with coordinates from p on and with the bit that is ignored.
    const std::string ones(60, 'f'), zeros(60, '0');
    for (const std::string& u :
         {"00" + zeros + "00", "01" + zeros + "00", "00" + zeros + "80", "01" + zeros + "80",
          std::string("e0eb7a7c3b41b8ae1656e3faf19fc46ada098deb9c32b1fd866205165f49b800"),
          std::string("5f9c95bca3508c24b1d0b1559c83ef5b04445cc4581c8e86d8224eddd09f1157"), "ec" + ones + "7f",
          "ed" + ones + "7f", "ee" + ones + "7f", "ec" + ones + "ff", "ed" + ones + "ff",
          "ee" + ones + "ff"}) {
        Bytes product(kX25519Bytes, 1);
        EXPECT_FALSE(x25519(product.data(), Bytes(32, 0x77).data(), test::from_hex(u).data())) << u;
        EXPECT_EQ(product, Bytes(kX25519Bytes)) << u;
    }
    // p + 9 is 9.
    Bytes expected(kX25519Bytes), product(kX25519Bytes);
    x25519_public(expected.data(), Bytes(32, 0x77).data());
    EXPECT_TRUE(x25519(product.data(), Bytes(32, 0x77).data(), test::from_hex("f6" + ones + "7f").data()));
    EXPECT_EQ(product, expected);
}

TEST(Ed25519, SignsAsRfc8032) {
    for (const auto& v : test::read_vectors("ec/ed25519_rfc8032.txt")) {
        const Bytes d = v.hex("Private"), key = v.hex("Public"), message = v.hex("Message");
        const auto form = v.number("Form") == 0 ? Ed25519Form::pure : Ed25519Form::preHashed;
        Bytes made(kEd25519Key), signature(kEd25519Signature);
        ed25519_public(made.data(), d.data());
        EXPECT_EQ(made, key);
        Ed25519Bytes bytes(message.data(), message.size());
        EXPECT_TRUE(ed25519_sign(signature.data(), d.data(), key.data(), bytes, form));
        EXPECT_EQ(test::to_hex(signature), v.text("Signature"));
        EXPECT_TRUE(ed25519_good(signature, key, message, form));
        EXPECT_FALSE(ed25519_good(signature, key, message,
                                  form == Ed25519Form::pure ? Ed25519Form::preHashed : Ed25519Form::pure));

        // S + L satisfies the equation as S does.
        uint8_t* const s = signature.data() + 32;
        Limbs<4> sum{};
        ASSERT_EQ(limbs_add(sum, read_little_endian(s), kEdwardsOrder.p), 0u);
        write_little_endian(s, sum);
        EXPECT_FALSE(ed25519_good(signature, key, message, form));
    }
}

TEST(Ed25519, RefusesKeysThatProveNothing) {
    const std::string ones(60, 'f'), zeros(60, '0');
    const std::string identity = "01" + zeros + "00";
    for (const std::string& key :
         {identity, "ec" + ones + "7f", "00" + zeros + "00", "00" + zeros + "80",
          std::string("26e8958fc2b227b045c3f489f2ef98f0d5dfac05d3c63339b13802886d53fc05"),
          std::string("26e8958fc2b227b045c3f489f2ef98f0d5dfac05d3c63339b13802886d53fc85"),
          std::string("c7176a703d4dd84fba3c0b760d10670f2a2053fa2c39ccc64ec7fd7792ac037a"),
          std::string("c7176a703d4dd84fba3c0b760d10670f2a2053fa2c39ccc64ec7fd7792ac03fa"),
          // Not canonical: x = 0 with a sign, and y from p on, of small order or (p + 3) of a larger one.
          "01" + zeros + "80", "ec" + ones + "ff", "ed" + ones + "7f", "ee" + ones + "7f", "ee" + ones + "ff",
          "f0" + ones + "7f", "f0" + ones + "ff", "02" + zeros + "00"}) { // on the twist
        EXPECT_FALSE(ed25519_key_is_valid(test::from_hex(key).data())) << key;
        // With a key of order 1 this is a signature of everything.
        EXPECT_FALSE(ed25519_good(test::from_hex(identity + "00" + zeros + "00"), test::from_hex(key), {},
                                  Ed25519Form::pure))
            << key;
    }
    EXPECT_TRUE(ed25519_key_is_valid(test::from_hex("03" + zeros + "00").data()));
}

// Integers of two octets: no zero too many, none too few.
TEST(EcdsaDer, HasOneForm) {
    const struct {
        const char *der, *numbers; // empty: refused
    } rows[] = {{"3006020101020102", "00010002"},
                {"30080202008002020100", "00800100"},
                {"3006020100020101", "00000001"},
                {"300702020001020101", ""},
                {"300702010102020001", ""},
                {"3006020180020101", ""},
                {"30080203010000020101", ""},
                {"30050200020101", ""},
                {"308106020101020102", ""},
                {"30060201010201020000", ""},
                {"300702010102010200", ""},
                {"30080201010201020500", ""},
                {"30800201010201020000", ""},
                {"3003020101", ""},
                {"3106020101020102", ""},
                {"30820006020101020102", ""},
                {"", ""}};
    for (const auto& row : rows) {
        const Bytes der = test::from_hex(row.der);
        uint8_t numbers[4];
        const bool isGood = ecdsa_der_read(numbers, 2, der.data(), der.size());
        EXPECT_EQ(isGood ? test::to_hex(numbers, 4) : "", row.numbers) << row.der;
    }
}

} // namespace zul
