#include <cstring>

#include "hash/digest.h"
#include "module/known_answers.h"
#include "pbe/argon2.h"
#include "pbe/hkdf.h"
#include "pbe/kdf.h"
#include "pbe/scrypt.h"

namespace zul {

namespace {

// RFC 5869, A.1.
constexpr char kHkdfAnswer[] =
    "3cb25f25faacd57a90434f64d0362f2a2d2d0a90cf1a5a4c5db02d56ecc4c5bf34007208d5b887185865";
// RFC 6070, the second example; RFC 7914, section 11, the first.
constexpr char kPbkdf2Sha1Answer[] = "ea6c014dc72d6f8ccd1ed92ace1d41f0d8de8957";
constexpr char kPbkdf2Sha256Answer[] =
    "55ac046e56e3089fec1691c22544b605f94185216dde0465e68b9d57c20dacbc49ca9cccf179b645991664b39d77ef31"
    "7c71b845b1e30bd509112041d3a19783";
// RFC 7914, section 12, the first example.
constexpr char kScryptAnswer[] =
    "77d6576238657b203b19ca42c18a0497f16b4844e3074ae8dfdffa3fede21442fcd0069ded0948f8326a753a0fc81f17"
    "e8d3e0fb2e0d3628cf35e20c38d18906";
// RFC 9106, 5.3.
constexpr char kArgon2idAnswer[] = "0d640df58d78766c08c037a34a8b53c9d01ef0452d75b65eb52520e96b01e659";

bool pbkdf2_gives(const char* expected, int hashAlg, const char* password, uint32_t iterations) {
    constexpr uint8_t kSalt[] = {'s', 'a', 'l', 't'};
    const KnownBytes answer(expected);
    uint8_t out[KnownBytes::kMost];
    pbkdf2(out, answer.size(), hashAlg, password, strlen(password), kSalt, sizeof kSalt, iterations);
    return answer.equals(out, answer.size());
}

} // namespace

bool hkdf_holds(int) {
    const KnownBytes key("0b0b0b0b0b0b0b0b0b0b0b0b0b0b0b0b0b0b0b0b0b0b"), salt("000102030405060708090a0b0c"),
        info("f0f1f2f3f4f5f6f7f8f9");
    uint8_t out[42];
    hkdf(out, sizeof out, kDigestSha256, key.data(), key.size(), salt.data(), salt.size(), info.data(),
         info.size());
    return KnownBytes(kHkdfAnswer).equals(out, sizeof out);
}

bool pbkdf2_holds(int) {
    return pbkdf2_gives(kPbkdf2Sha1Answer, kDigestSha1, "password", 2) &&
           pbkdf2_gives(kPbkdf2Sha256Answer, kDigestSha256, "passwd", 1);
}

bool scrypt_holds(int) {
    uint8_t out[64];
    return scrypt(out, sizeof out, "", 0, nullptr, 0, {16, 1, 1}) == 0 &&
           KnownBytes(kScryptAnswer).equals(out, sizeof out);
}

bool argon2id_holds(int) {
    uint8_t password[32], salt[16], secret[8], associated[12], out[32];
    memset(password, 1, sizeof password);
    memset(salt, 2, sizeof salt);
    memset(secret, 3, sizeof secret);
    memset(associated, 4, sizeof associated);
    const Argon2Input input = {{password, sizeof password},
                               {salt, sizeof salt},
                               {secret, sizeof secret},
                               {associated, sizeof associated}};
    return argon2id(out, sizeof out, input, {32, 3, 4}) == 0 &&
           KnownBytes(kArgon2idAnswer).equals(out, sizeof out);
}

} // namespace zul
