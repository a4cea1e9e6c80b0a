#include "pbe/kdf.h"
#include "support/unit_test.h"

using namespace zul;

static Bytes derive(const test::Vector& v, uint32_t iterations, size_t length) {
    const std::string function = v.text("Function");
    const Bytes password = v.hex("Password"), salt = v.hex("Salt");
    const int algorithm = static_cast<int>(v.number("Algorithm"));
    Bytes out(length + 1, 0x5A); // one byte more, to see that it is left alone
    if (function == "PKCS12") {
        pkcs12_kdf(out.data(), length, algorithm, static_cast<Pkcs12Purpose>(v.number("Purpose")),
                   password.data(), password.size(), salt.data(), salt.size(), iterations);
    } else {
        (function == "PBKDF1" ? pbkdf1 : pbkdf2)(out.data(), length, algorithm, password.data(),
                                                 password.size(), salt.data(), salt.size(), iterations);
    }
    EXPECT_EQ(out.back(), 0x5A);
    out.pop_back();
    return out;
}

TEST(Kdf, VectorsWholeAndCut) {
    for (const auto& v : test::read_vectors("pbe/kdf.txt")) {
        const Bytes key = v.hex("Key");
        const auto iterations = static_cast<uint32_t>(v.number("Iterations"));
        EXPECT_EQ(derive(v, iterations, key.size()), key);
        for (size_t cut = 0; iterations < 50 && cut < key.size(); cut++)
            EXPECT_EQ(derive(v, iterations, cut), Bytes(key.begin(), key.begin() + static_cast<long>(cut)));
        if (iterations == 1) {
            EXPECT_EQ(derive(v, 0, key.size()), key);
        }
    }
}
