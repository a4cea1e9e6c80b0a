#include "interop/rsa_interop.h"

// Keys and key files. The peers are openssl, with its old algorithms, and certtool.

namespace {

class RsaKeysInterop : public test::RsaInterop {};

const std::string kOld = " -provider legacy -provider default";

} // namespace

TEST_F(RsaKeysInterop, OurPairsAreGood) {
    const struct {
        int bits, expIndex, options;
        const char *exponent, *inPrivate, *inPublic;
    } pairs[] = {
        {512, 0, 0, "3 ", "-inform DER", "-RSAPublicKey_in -inform DER"},
        {1023, 1, ZUL_PBE_MD5_DES | ZUL_KEY_FORMAT_PEM, "5 ", "", "-RSAPublicKey_in"},
        {1024, 2, ZUL_PBE_PBES2_DEFAULT | ZUL_KEY_FORMAT_PEM_ALT, "17 ", "", "-pubin"},
        {2047, 3, ZUL_PBE_PBES2 | ZUL_PBE_CIPHER_AES256 | ZUL_HASH_SHA512, "257 ", "-inform DER",
         "-RSAPublicKey_in -inform DER"},
        {2048, 4, ZUL_PBE_PBES2 | ZUL_PBE_CIPHER_AES128 | ZUL_KEY_FORMAT_PEM | ZUL_KEY_FORMAT_PEM_ALT,
         "65537 ", "", "-RSAPublicKey_in"},
    };
    for (const auto& p : pairs) {
        SCOPED_TRACE(p.bits);
        ASSERT_EQ(RSA_MakeKeys(file("pub").c_str(), file("pri").c_str(), p.bits, p.expIndex, 20, 1000,
                               "pass word", "seed", 4, p.options),
                  0);
        const std::string in = " -passin 'pass:pass word' " + kOld + " -in pri " + p.inPrivate;
        run("openssl rsa -check -noout" + in + " | grep 'RSA key ok'");
        run("openssl rsa -noout -text" + in + " | grep 'publicExponent: " + p.exponent + "'");
        run("openssl rsa -noout -modulus" + in + " >a && openssl rsa -noout -modulus -in pub " + p.inPublic +
            " >b && cmp a b");
        const std::string privateKey = encrypted_key("pri", "pass word"), publicKey = public_key("pub");
        EXPECT_EQ(RSA_KeyBits(privateKey.c_str()), p.bits);
        EXPECT_EQ(RSA_KeyMatch(privateKey.c_str(), publicKey.c_str()), 0);
    }
}

TEST_F(RsaKeysInterop, OurEncryptedKeysAreRead) {
    make_key(1024, "65537");
    const std::string key = private_key("key.pem");
    // openssl has no MD2, so that scheme is without a peer
    std::vector<int> schemes = {ZUL_PBE_SHA_3DES, ZUL_PBE_MD5_DES, ZUL_PBE_SHA1_DES, ZUL_PBE_PBES2_DEFAULT};
    for (const int cipher : {0, ZUL_PBE_CIPHER_AES128, ZUL_PBE_CIPHER_AES192, ZUL_PBE_CIPHER_AES256})
        for (const int prf : {ZUL_HASH_SHA1, ZUL_HASH_SHA256, ZUL_HASH_SHA384, ZUL_HASH_SHA512})
            schemes.push_back(ZUL_PBE_PBES2 | cipher | prf);
    for (const int scheme : schemes)
        for (const int format : {0, ZUL_KEY_FORMAT_PEM}) {
            SCOPED_TRACE(testing::Message() << std::hex << scheme << " " << format);
            const int count = format == 0 ? 0 : 3000; // 0 counts as 1
            EXPECT_EQ(
                RSA_SaveEncPrivateKey(file("enc").c_str(), key.c_str(), count, "geheim", scheme | format), 0);
            run("openssl pkey -in enc -passin pass:geheim " + kOld +
                (format ? " -inform PEM" : " -inform DER") + " -out back && cmp back key.pem");
            // certtool takes no PBES1 with SHA-1
            if (format && scheme != ZUL_PBE_SHA1_DES)
                run("certtool -k --infile enc --password=geheim --outfile text && "
                    "grep 'Public Key Algorithm: RSA' text");
        }
}
