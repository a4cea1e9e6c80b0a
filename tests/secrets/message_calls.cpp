// CMS messages.
#include <cstring>

#include "secrets/secrets_test.h"

namespace secrets {

void check_messages(const char* data) {
    const TestKey& key = keys[kRsa];
    const TestKey& other = keys[kOtherRsa];
    char* const out = reinterpret_cast<char*>(take(5000));
    fresh();
    char* const content = plant_text("a content", 700);
    const Byte* const seed = plant("a seed", 20);
    write_file("plain", content, 700);
    const char* const digest = "a9993e364706816aba3e25717850c26c9cd0d89d";
    CHECK(CMS_MakeSigData, "signs", 0, "signed", "plain", key.certificate, key.text, ZUL_HASH_SHA256);
    CHECK(CMS_MakeSigData, "attributes", 0, "signed", "plain", key.certificate, key.text,
          ZUL_CMS_INCLUDE_ATTRS);
    CHECK(CMS_MakeSigData, "cannot write", CREATE_ERROR, "none/signed", "plain", key.certificate, key.text,
          0);
    CHECK(CMS_MakeSigDataFromString, "signs", 0, "signed", content, key.certificate, key.text, 0);
    CHECK(CMS_MakeDetachedSig, "signs", 0, "detached", digest, key.certificate, key.text, 0);
    for (const int option : {0, ZUL_CMS_CIPHER_AES128, ZUL_CMS_CIPHER_AES192, ZUL_CMS_CIPHER_AES256}) {
        CHECK(CMS_MakeEnvData, "encrypts", 1, "enveloped", "plain", key.certificate, seed, 20, option);
        CHECK(CMS_MakeEnvData, "cannot write", -CREATE_ERROR, "none/enveloped", "plain", key.certificate,
              seed, 20, option);
        CHECK(CMS_MakeEnvDataFromString, "encrypts", 1, "enveloped", content, key.certificate, seed, 20,
              option | ZUL_CMS_FORMAT_BASE64);
        CHECK(CMS_ReadEnvData, "decrypts", 0, "opened", "enveloped", key.certificate, key.text, 0);
        CHECK(CMS_ReadEnvData, "for anybody", 0, "opened", "enveloped", "", key.text, 0);
        CHECK(CMS_ReadEnvData, "another key", -DECRYPT_ERROR, "opened", "enveloped", "", other.text, 0);
        CHECK(CMS_ReadEnvData, "cannot write", -CREATE_ERROR, "none/opened", "enveloped", "", key.text, 0);
        CHECK(CMS_ReadEnvDataToString, "decrypts", 700, out, 4000, "enveloped", "", key.text, 0);
        CHECK(CMS_ReadEnvDataToString, "is cut", kAny, out, 100, "enveloped", "", key.text, 0);
        CHECK(CMS_ReadEnvDataToString, "asks", 700, nullptr, 0, "enveloped", "", key.text, 0);
        CHECK(CMS_ReadEnvDataToString, "another key", -DECRYPT_ERROR, out, 4000, "enveloped", "", other.text,
              0);
        // A content that ends within its padding.
        CHECK(CMS_MakeEnvData, "as DER", 1, "enveloped", "plain", key.certificate, seed, 20, option);
        size_t size = 0;
        Byte* const message = read_file("enveloped", &size);
        message[size - 20] ^= 0x40;
        write_file("damaged", message, size);
        CHECK(CMS_ReadEnvDataToString, "damaged", kAny, out, 4000, "damaged", "", key.text, 0);
    }
    // A cipher that is only read.
    fresh();
    char old[4000];
    RSA_ReadPrivateKeyInfo(old, 3999, joined(data, "/cms_envelope/me.key"));
    plant_numbers("an old key", old);
    for (const char* name : {"/cms_envelope/rc2_40.der", "/cms_envelope/rc2_128.der"}) {
        const char* const file = joined(data, name);
        CHECK(CMS_ReadEnvDataToString, "RC2", kPositive, out, 4000, file, "", old, 0);
    }
}

} // namespace secrets
