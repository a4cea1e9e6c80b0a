// RSA keys, operations and message encodings.
#include <cstring>
#include <unistd.h>

#include "secrets/secrets_test.h"

namespace secrets {

namespace {

constexpr int kRoom = 8000, kBlock = 128; // of the shared keys
char* text = nullptr;

void check_reading() {
    fresh();
    const TestKey& key = keys[kRsa];
    size_t size = 0;
    const char* const pem = reinterpret_cast<const char*>(read_file(key.file, &size));
    for (const char* argument : {key.file, pem}) {
        CHECK(RSA_ReadPrivateKeyInfo, "reads", kPositive, text, kRoom, argument);
        CHECK(RSA_ReadPrivateKeyInfo, "no room", -SHORT_BUF_ERROR, text, 20, argument);
    }
    char* const cut = joined(pem, "");
    cut[strlen(cut) / 2] = '\0';
    CHECK(RSA_ReadPrivateKeyInfo, "damaged", kAny, text, kRoom, cut);
    const char* const wrong = plant_text("a wrong password", 20);
    CHECK(RSA_ReadEncPrivateKey, "reads", kPositive, text, kRoom, key.encrypted, keyPassword, 0);
    CHECK(RSA_ReadEncPrivateKey, "no room", -SHORT_BUF_ERROR, text, 20, key.encrypted, keyPassword, 0);
    CHECK(RSA_ReadEncPrivateKey, "a wrong password", -DECRYPT_ERROR, text, kRoom, key.encrypted, wrong, 0);
    char xml[kRoom + 1];
    CHECK(RSA_ToXMLString, "writes", kPositive, xml, kRoom, key.text, 0);
    CHECK(RSA_FromXMLString, "reads", kPositive, text, kRoom, xml, 0);
    CHECK(RSA_FromXMLString, "no room", -SHORT_BUF_ERROR, text, 20, xml, 0);
    xml[strlen(xml) - 40] = '<';
    CHECK(RSA_FromXMLString, "damaged", -BAD_XML_ERROR, text, kRoom, xml, 0);
    CHECK(RSA_ToXMLString, "hexadecimal", kPositive, xml, kRoom, key.text, ZUL_XML_HEXBINARY);
    CHECK(RSA_FromXMLString, "hexadecimal", kPositive, text, kRoom, xml, 0);
    CHECK(RSA_ToXMLString, "no room", kPositive, xml, 20, key.text, 0);
}

void check_saving() {
    fresh();
    const TestKey& key = keys[kRsa];
    char* const publicKey = public_of(key);
    char* const altered = joined(key.text, "");
    altered[200] = altered[200] == 'A' ? 'B' : 'A';
    CHECK(RSA_SavePublicKey, "of a private key", 0, "saved", key.text, ZUL_KEY_FORMAT_PEM);
    for (const int option : {0, ZUL_KEY_FORMAT_PEM, ZUL_KEY_FORMAT_PEM_ALT})
        CHECK(RSA_SavePrivateKeyInfo, "saves", 0, "saved", key.text, option);
    CHECK(RSA_SavePrivateKeyInfo, "cannot write", CREATE_ERROR, "none/saved", key.text, 0);
    CHECK(RSA_SavePrivateKeyInfo, "altered", INVALID_DATA_ERROR, "saved", altered, 0);
    const char* const password = plant_text("a password", 25);
    for (const int option : {ZUL_PBE_SHA_3DES, ZUL_PBE_MD5_DES, ZUL_PBE_MD2_DES, ZUL_PBE_SHA1_DES,
                             ZUL_PBE_PBES2_DEFAULT, ZUL_PBE_PBES2 | ZUL_PBE_CIPHER_AES256 | ZUL_HASH_SHA256,
                             ZUL_PBE_PBES2 | ZUL_PBE_CIPHER_AES128 | ZUL_HASH_SHA512}) {
        CHECK(RSA_SaveEncPrivateKey, "saves", 0, "saved", key.text, 20, password, option);
        CHECK(RSA_ReadEncPrivateKey, "every scheme", kPositive, text, kRoom, "saved", password, 0);
        CHECK(RSA_ReadEncPrivateKey, "every wrong one", -DECRYPT_ERROR, text, kRoom, "saved", keyPassword, 0);
    }
    CHECK(RSA_SaveEncPrivateKey, "cannot write", CREATE_ERROR, "none/saved", key.text, 20, password, 0);
    CHECK(RSA_KeyBits, "asks", 1024, key.text);
    CHECK(RSA_KeyBits, "altered", -INVALID_DATA_ERROR, altered);
    CHECK(RSA_KeyBytes, "asks", kBlock, key.text);
    CHECK(RSA_KeyMatch, "matches", 0, key.text, publicKey);
    CHECK(RSA_KeyMatch, "does not match", -NO_MATCH_ERROR, keys[kOtherRsa].text, publicKey);
    CHECK(RSA_KeyHashCode, "asks", kAny, key.text);
    CHECK(RSA_CheckKey, "checks", 0, key.text, 0);
}

void check_making() {
    fresh();
    const char* const password = plant_text("a password", 25);
    const Byte* const seed = plant("a seed", 40);
    CALL(RSA_MakeKeys, "makes", 0, "made.pub", "made.enc", 1024, 4, 5, 10, password, seed, 40, 0);
    RSA_ReadEncPrivateKey(text, kRoom, "made.enc", password, 0);
    plant_numbers("a made key", text);
    LOOK(RSA_MakeKeys, "makes");
    fresh();
    CALL(RSA_MakeKeys, "cannot write", 0, "made.pub", "none/made", 1024, 4, 5, 10, password, seed, 40, 0);
    LOOK(RSA_MakeKeys, "cannot write");
}

void check_operations() {
    const TestKey& key = keys[kRsa];
    char* const publicKey = public_of(key);
    Byte *const block = take(kBlock), *const sealed = take(kBlock), *const out = take(kBlock);
    for (const int option :
         {ZUL_EME_PKCSV1_5, ZUL_EME_OAEP | ZUL_HASH_SHA1, ZUL_EME_OAEP | ZUL_HASH_SHA256}) {
        fresh();
        const Byte* const message = plant("a message", 50);
        CALL(RSA_EncodeMsg, "encodes", 0, block, kBlock, message, 50, option);
        plant_bytes("a block", block, kBlock, kNumber);
        LOOK(RSA_EncodeMsg, "encodes");
        CHECK(RSA_EncodeMsg, "too long", -SHORT_BUF_ERROR, block, 40, message, 50, option);
        CHECK(RSA_DecodeMsg, "decodes", 50, out, kBlock, block, kBlock, option);
        CHECK(RSA_DecodeMsg, "is cut", 50, out, 10, block, kBlock, option);
        memcpy(sealed, block, kBlock);
        CHECK(RSA_RawPublic, "encrypts", 0, sealed, kBlock, publicKey, 0);
        CHECK(RSA_RawPrivate, "decrypts", 0, sealed, kBlock, key.text, 0);
        block[1] ^= 1;
        CHECK(RSA_DecodeMsg, "damaged", -DECRYPT_ERROR, out, kBlock, block, kBlock, option);
    }
    fresh();
    const Byte* const message = plant("a message", 50);
    CHECK(RSA_EncodeMsg, "to sign", 0, block, kBlock, message, 50, ZUL_EMSIG_PKCSV1_5 | ZUL_HASH_SHA256);
    CHECK(RSA_RawPrivate, "signs", 0, block, kBlock, key.text, 0);
    CHECK(RSA_RawPrivate, "too large", OUT_OF_RANGE_ERROR, memset(out, 0xFF, kBlock) == out ? out : nullptr,
          kBlock, key.text, 0);
    CHECK(RSA_EncodeMsg, "ISO 9796", 0, block, kBlock, message, 50, ZUL_EMSIG_ISO9796 | 1023);
    CHECK(RSA_DecodeMsg, "ISO 9796", 50, out, kBlock, block, kBlock, ZUL_EMSIG_ISO9796 | 1023);
    CHECK(RSA_RawPrivate, "ISO 9796", kAny, block, kBlock, key.text, ZUL_RSA2_TRAILER6);
}

} // namespace

void check_rsa() {
    text = reinterpret_cast<char*>(take(kRoom + 1));
    check_reading();
    check_saving();
    check_making();
    check_operations();
}

} // namespace secrets
