#include <ctime>
#include <map>

#include "asn1/asn_children.h"
#include "asn1/asn_value.h"
#include "frame/debug_output.h"
#include "hash/digest.h"
#include "key/key_encryption.h"
#include "pbe/kdf.h"
#include "pbe/pbe.h"
#include "pbe/pbe_params.h"
#include "pfx/p12_scheme.h"
#include "support/asn_lists.h"
#include "zulcore.h"

using namespace zul;

using test::bytes_of, test::replaced;

namespace {

const Bytes kPlain = {0x30, 0x05, 0x02, 0x03, 0x01, 0x02, 0x03};

int decrypt(const Bytes& der, const char* password, SecretBuffer& plain) {
    err_clear();
    const AsnList list = asn_ParseAll(der.data(), der.size());
    return pbe_decrypt(list.head(), password, plain);
}

std::string encrypted_hex(const char* password, int iterations, int options, const Bytes& plain = kPlain) {
    PbeContext context;
    EXPECT_EQ(pbe_setup(context, password, iterations, options), 0);
    return test::hex_of(pbe_encrypt(context, plain.data(), plain.size()));
}

std::string salt_hex(const std::string& password, time_t seconds) {
    Bytes message(password.begin(), password.end());
    message.insert(message.end(), kPlain.begin(), kPlain.end());
    for (int i = 0; seconds != 0 && i < 64; i += 8)
        message.push_back(static_cast<uint8_t>(seconds >> i));
    uint8_t digest[8];
    EXPECT_GT(hash_bytes(digest, 8, message.data(), static_cast<int64_t>(message.size()), kDigestSha1), 0);
    return test::to_hex(digest, 8);
}

} // namespace

TEST(Pbe, ReadsWhatOtherProducersWrite) {
    for (const auto& v : test::read_vectors("pbe/keys.txt")) {
        SCOPED_TRACE(v.text("Name"));
        const Bytes der = v.hex("Encrypted"), passwordBytes = v.hex("Password");
        const std::string password(passwordBytes.begin(), passwordBytes.end());
        SecretBuffer plain;
        EXPECT_EQ(decrypt(der, password.c_str(), plain), 0) << err_text();
        EXPECT_EQ(bytes_of(plain), v.hex("Plain"));
        EXPECT_EQ(decrypt(der, (password + "x").c_str(), plain), DECRYPT_ERROR);
        EXPECT_STREQ(err_text(), "Decryption error");
        EXPECT_TRUE(plain.empty());
    }
}

// The structure up to the ciphertext, with salt and IV computed here, and the way back.
TEST(Pbe, WritesTheSchemeOfTheOptions) {
    // The parts that the structures of PBES2 are put together from.
    const std::string pkcs12 = "301c060a2a864886f70d010c0103300e0408<salt>020207d0";
    const std::string pbes2 = "06092a864886f70d01050d", kdf = "06092a864886f70d01050c";
    const std::string noPrf = "301b" + kdf + "300e0408<salt>020207d0";
    const std::string withPrf = "3029" + kdf + "301c0408<salt>020207d0300c06082a864886f70d02";
    const std::string tdes = "301406082a864886f70d03070408<iv>", aes = "301d060960864801650304";
    const std::string default2 = "3040" + pbes2 + "3033" + noPrf + tdes;
    const std::pair<int, std::string> cases[] = {
        {0, pkcs12},
        {0x10009, pkcs12},
        {1, "301b06092a864886f70d010503300e0408<salt>020207d0"},
        {2, "301b06092a864886f70d010501300e0408<salt>020207d0"},
        {0x23, "301b06092a864886f70d01050a300e0408<salt>020207d0"},
        {4, default2},
        {0x1000, default2},
        {0x1052, default2},
        {0x1040, "3049" + pbes2 + "303c" + noPrf + aes + "012a0410<iv>"},
        {0x1023, "3057" + pbes2 + "304a" + withPrf + "090500" + aes + "01020410<iv>"},
        {0x1034, "3057" + pbes2 + "304a" + withPrf + "0a0500" + aes + "01160410<iv>"},
        {0x21045, "3057" + pbes2 + "304a" + withPrf + "0b0500" + aes + "012a0410<iv>"},
        {0x1005, "304e" + pbes2 + "3041" + withPrf + "0b0500" + tdes},
    };
    const std::string password = "p\xe4ss";
    for (const auto& [options, algorithm] : cases) {
        SCOPED_TRACE(testing::Message() << std::hex << options);
        const time_t before = time(nullptr);
        const std::string got = encrypted_hex(password.c_str(), 2000, options);
        const time_t after = time(nullptr); // of a coarser clock than the library reads

        const bool isPbes2 = algorithm.find("<iv>") != algorithm.npos;
        bool found = false;
        for (time_t t = isPbes2 ? before : 0; !found && t <= (isPbes2 ? after + 1 : 0); t++) {
            const std::string salt = salt_hex(password, t);
            std::string expected = replaced(algorithm, "<salt>", salt);
            if (isPbes2) {
                Bytes iv(expected.find("0410<iv>") != expected.npos ? 16 : 8);
                pkcs12_kdf(iv.data(), iv.size(), ZUL_HASH_SHA1, Pkcs12Purpose::iv, password.data(),
                           password.size(), test::from_hex(salt).data(), 8, 2000);
                expected = replaced(expected, "<iv>", test::to_hex(iv));
            }
            found = got.substr(4, expected.size()) == expected;
        }
        EXPECT_TRUE(found) << got;
        SecretBuffer plain;
        EXPECT_EQ(decrypt(test::from_hex(got), password.c_str(), plain), 0) << err_text();
        EXPECT_EQ(bytes_of(plain), kPlain);
    }
}

TEST(Pbe, PasswordsAndIterationCounts) {
    SecretBuffer plain;
    PbeContext context;
    EXPECT_EQ(pbe_setup(context, nullptr, 1, 0), BAD_PARAM_ERROR);
    const std::string oneIteration = "0408" + salt_hex("", 0) + "020101";
    for (const int options : {0, 1}) {
        for (const int iterations : {-5, 0, 1}) {
            const std::string got = encrypted_hex("", iterations, options);
            EXPECT_NE(got.find(oneIteration), got.npos) << got;
            EXPECT_EQ(decrypt(test::from_hex(got), "", plain), 0);
        }
    }
    EXPECT_NE(encrypted_hex("", 200, 0).find("020200c8"), std::string::npos);
    EXPECT_EQ(decrypt(kPlain, nullptr, plain), BAD_PARAM_ERROR);
}

// Only the whole of one SEQUENCE is given back, whatever the padding says.
TEST(Pbe, RefusesPlainTextThatIsNoSequence) {
    const Bytes refused[] = {{},
                             {0x04, 0x01, 0x00},
                             {0x30, 0x00, 0x00},
                             {0x30, 0x00, 0x30, 0x00},
                             {0x30, 0x00, 0x00, 0x00},
                             {0x30, 0x05, 0x02, 0x01, 0x00}};
    for (const Bytes& bytes : refused) {
        SecretBuffer plain;
        const std::string der = encrypted_hex("password", 1, 0x1020, bytes);
        EXPECT_EQ(decrypt(test::from_hex(der), "password", plain), DECRYPT_ERROR) << test::to_hex(bytes);
        EXPECT_NE(strstr(err_text(), "Not valid PrivateKeyInfo data"), nullptr) << err_text();
        EXPECT_TRUE(plain.empty());
    }
}

TEST(Pbe, RefusesDamagedParameters) {
    std::map<std::string, std::string> samples;
    for (const auto& v : test::read_vectors("pbe/keys.txt")) {
        samples[v.text("Name")] = v.text("Encrypted");
        v.text("Plain"), v.text("Password");
    }
    const std::string aes = "PBES2 aes-128-cbc SHA256", rc2 = "PBES2 rc2-64-cbc",
                      ndef = "PBES2 in indefinite lengths, keyLength given, by hand", v1 = "PBE-SHA1-DES";
    const char noParams[] = "Failed to extract PBE parameters",
               noCipher[] = "PBES2 encryption scheme parameters invalid or not supported",
               noFormat[] = "Invalid EncryptedPrivateKeyInfo format";
    const struct {
        std::string sample;
        const char *from, *to;
        int error;
        const char* text;
    } cases[] = {
        {aes, "f70d01050d", "f70d01050e", NOT_SUPPORTED_ERROR,
         "Unsupported PBE algorithm: 1.2.840.113549.1.5.14"},
        {aes, "f70d01050d", "f70d010105", NOT_SUPPORTED_ERROR,
         "Unsupported PBE algorithm: sha1WithRSAEncryption"},
        {aes, "f70d01050c", "f70d01050d", NOT_SUPPORTED_ERROR,
         "Key derivation algorithm 'pkcs5PBES2' not supported"},
        {aes, "f70d0209", "f70d0208", NOT_SUPPORTED_ERROR, "PRF algorithm 'hmacWithSHA224' not supported"},
        {aes, "f70d0209", "f70d020d", NOT_SUPPORTED_ERROR,
         "PRF algorithm '1.2.840.113549.2.13' not supported"},
        {aes, "0304010204", "0304010604", NOT_SUPPORTED_ERROR, "'2.16.840.1.101.3.4.1.6' not supported"},
        {v1, "020203e8", "02020000", BAD_FORMAT_ERROR, noParams},
        {v1, "020203e8", "020283e8", BAD_FORMAT_ERROR, noParams},
        {v1, "300e0408", "310e0408", BAD_FORMAT_ERROR, noParams},
        {aes, "020203e8", "0202ffff", BAD_FORMAT_ERROR, noParams},
        {aes, "0304010204", "030401020c", BAD_FORMAT_ERROR, noCipher},
        {rc2, "020178", "020179", NOT_SUPPORTED_ERROR, "Invalid ParameterVersion (121)"},
        {"PBES2 rc2-40-cbc", "020200a0", "02020401", NOT_SUPPORTED_ERROR, "Invalid ParameterVersion (1025)"},
        {rc2, "020178", "040178", BAD_FORMAT_ERROR, noCipher},
        {ndef, "020118", "020110", BAD_FORMAT_ERROR, noCipher},
        {ndef, "020118", "020100", BAD_FORMAT_ERROR, noParams},
        {rc2, "020178", "0201a0", NOT_SUPPORTED_ERROR, "Invalid ParameterVersion (0)"},
        {v1, "0438", "0c38", BAD_FORMAT_ERROR, noFormat},
        {v1, "3057", "3157", BAD_FORMAT_ERROR, noFormat},
        {v1, "0438", "0000", BAD_FORMAT_ERROR, noFormat},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.sample + " " + c.from + " " + c.to);
        SecretBuffer plain;
        EXPECT_EQ(decrypt(test::from_hex(replaced(samples[c.sample], c.from, c.to)), "x", plain), c.error);
        EXPECT_STREQ(err_text(), c.text);
    }

    // Ciphertexts of no or no whole block.
    for (const size_t cut : {1u, 7u, 56u}) {
        std::string der = samples[v1];
        der.resize(der.size() - 2 * cut);
        const uint8_t outer = static_cast<uint8_t>(0x57 - cut), inner = static_cast<uint8_t>(0x38 - cut);
        der = replaced(der, "3057", "30" + test::to_hex(&outer, 1));
        der = replaced(der, "0438", "04" + test::to_hex(&inner, 1));
        SecretBuffer plain;
        EXPECT_EQ(decrypt(test::from_hex(der), "p\xe4ssword", plain), DECRYPT_ERROR);
        EXPECT_STREQ(err_text(), "Decryption error");
    }
}

TEST(Pbe, RefusesAKeyThatItsCipherDoesNotTake) {
    PbeContext context;
    ASSERT_EQ(pbe_setup(context, "password", 1, ZUL_PBE_PBES2), 0);
    (*context).cipher = CipherAlgorithm::rc2; // with no key bits
    err_clear();
    EXPECT_FALSE(pbe_encrypt(context, kPlain.data(), kPlain.size()));
    EXPECT_STREQ(err_text(), "Encryption scheme (2) not supported");
}

TEST(Pbe, TracesItsSteps) {
    debugOutput.structures = 1;
    testing::internal::CaptureStdout();
    encrypted_hex("password", 1, 0);
    debugOutput.structures = 0;
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Made salt\nMade key\nMade ciphertext\n");
}

// What scrypt fills counts for a PKCS #12 file too: here 2 KiB.
TEST(Pbe, ScryptTakesOfTheWorkOfAFile) {
    KeyEncryption encryption;
    encryption.kdf = KeyKdf::scrypt;
    encryption.n = 16;
    encryption.r = encryption.p = 1;
    SecretBuffer plain, data;
    plain.append(kPlain.data(), kPlain.size());
    AsnList encrypted, list;
    ASSERT_EQ(key_encrypt(encrypted, plain, "pw", encryption), 0);
    AsnChildren fields(encrypted.head());
    const asn_Node* const algorithm = fields.take_sequence();
    ASSERT_TRUE(asn_GetOctets(fields.take_octets(), data));
    P12Password password("pw");
    P12Work work;
    EXPECT_EQ(p12_decrypt(list, algorithm, data, password, work), 0);
    ASSERT_EQ(work.take(99'999'970), 0);
    EXPECT_EQ(p12_decrypt(list, algorithm, data, password, work), OUT_OF_RANGE_ERROR);
}
