#include "support/unit_test.h"
#include "x509/verify/dsa.h"

using namespace zul;

namespace {

void set(MT number, const Bytes& bytes) {
    mtConvFromOctets(number, bytes.data(), bytes.size());
}

Bytes octets(MT number) {
    Bytes bytes(mtConvToOctets(number, nullptr, 0));
    mtConvToOctets(number, bytes.data(), bytes.size());
    return bytes;
}

int verify(const DsaPublicKey& key, const Bytes& digest, const Bytes& r, const Bytes& s) {
    return dsa_verify(key, digest.data(), digest.size(), r.data(), r.size(), s.data(), s.size());
}

} // namespace

TEST(Dsa, VerifiesWhatOthersSigned) {
    for (const test::Vector& v : test::read_vectors("x509_dsa/dsa.txt")) {
        DsaPublicKey key;
        set(key.p, v.hex("p"));
        set(key.q, v.hex("q"));
        set(key.g, v.hex("g"));
        set(key.y, v.hex("y"));
        const Bytes digest = v.hex("digest"), r = v.hex("r"), s = v.hex("s");
        ASSERT_EQ(verify(key, digest, r, s), 0);
        Bytes longer = r;
        longer.insert(longer.begin(), 3, 0);
        EXPECT_EQ(verify(key, digest, longer, s), 0);

        // A digest counts with as many bits as q has.
        const size_t digestBits = std::min(digest.size() * 8, mtBitLength(key.q));
        for (size_t bit = 0; bit < digest.size() * 8; bit++) {
            Bytes damaged = digest;
            damaged[bit / 8] = static_cast<uint8_t>(damaged[bit / 8] ^ 0x80 >> bit % 8);
            EXPECT_EQ(verify(key, damaged, r, s), bit < digestBits ? -1 : 0) << bit;
        }
        for (size_t i = 0; i < r.size() && i < s.size(); i++) {
            Bytes badR = r, badS = s;
            badR[i] ^= 1;
            badS[i] ^= 1;
            EXPECT_EQ(verify(key, digest, badR, s), -1) << i;
            EXPECT_EQ(verify(key, digest, r, badS), -1) << i;
        }

        // Values outside 1 to q - 1, those that are congruent to good ones among them.
        BigInt rNumber, sNumber, sum;
        set(rNumber, r);
        set(sNumber, s);
        mtAdd(sum, rNumber, key.q);
        EXPECT_EQ(verify(key, digest, octets(sum), s), -1);
        mtAdd(sum, sNumber, key.q);
        EXPECT_EQ(verify(key, digest, r, octets(sum)), -1);
        for (const Bytes& bad : {Bytes{}, Bytes{0}, v.hex("q"), Bytes(5000, 0xFF)}) {
            EXPECT_EQ(verify(key, digest, bad, s), -1);
            EXPECT_EQ(verify(key, digest, r, bad), -1);
        }
    }
}

// With g = 1 and y = 1 everything would be signed by r = 1.
TEST(Dsa, RefusesKeysThatProveNothing) {
    const test::Vectors vectors = test::read_vectors("x509_dsa/dsa.txt");
    const test::Vector& v = *vectors.begin();
    const Bytes p = v.hex("p"), q = v.hex("q"), g = v.hex("g"), y = v.hex("y"), one = {1}, zero = {0};
    const Bytes digest = v.hex("digest"), r = v.hex("r"), s = v.hex("s"), huge(4096, 0xFF);
    const struct {
        const char* what;
        Bytes p, q, g, y;
        Bytes r;
    } cases[] = {
        {"trivial", p, q, one, one, one}, {"no modulus", zero, q, g, y, r}, {"p of 1", one, q, g, y, r},
        {"q of 0", p, zero, g, y, r},     {"q of 1", p, one, g, y, r},      {"q above p", q, p, g, y, r},
        {"g of 0", p, q, zero, y, r},     {"y of 0", p, q, g, zero, r},     {"y above p", p, q, g, huge, r},
        {"huge", huge, q, g, y, r},       {"even p", {0xF0, 0}, q, g, y, r}};
    for (const auto& c : cases) {
        DsaPublicKey key;
        set(key.p, c.p);
        set(key.q, c.q);
        set(key.g, c.g);
        set(key.y, c.y);
        EXPECT_EQ(verify(key, digest, c.r, s), -1) << c.what;
    }
}
