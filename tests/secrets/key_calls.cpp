// Keys of any kind and their signatures.
#include <cstring>
#include <unistd.h>

#include "secrets/secrets_test.h"

namespace secrets {

namespace {

constexpr int kRoom = 8000;
char* text = nullptr;
Byte* out = nullptr;

void check_making() {
    for (const char* algorithm : {"rsa-1024", "p-256", "p-384", "p-521", "ed25519", "x25519"}) {
        fresh();
        CALL(KEY_Make, algorithm, kPositive, text, kRoom, algorithm, 0);
        plant_numbers("a made key", text);
        LOOK(KEY_Make, algorithm);
    }
    fresh();
    CHECK(KEY_Make, "no room", -SHORT_BUF_ERROR, text, 20, "p-256", 0);
}

void check_key(const TestKey& key, const TestKey& other) {
    fresh();
    const char* const wrong = plant_text("a wrong password", 20);
    size_t size = 0;
    const char* const pem = reinterpret_cast<const char*>(read_file(key.file, &size));
    CHECK(KEY_Read, key.kind, kPositive, text, kRoom, key.file, nullptr, 0);
    CHECK(KEY_Read, "a text", kPositive, text, kRoom, pem, nullptr, 0);
    CHECK(KEY_Read, "no room", -SHORT_BUF_ERROR, text, 20, pem, nullptr, 0);
    CHECK(KEY_Read, "encrypted", kPositive, text, kRoom, key.encrypted, keyPassword, 0);
    CHECK(KEY_Read, "a wrong password", -DECRYPT_ERROR, text, kRoom, key.encrypted, wrong, 0);
    char* const cut = joined(pem, "");
    memmove(cut + 60, cut + 64, strlen(cut + 64) + 1);
    CHECK(KEY_Read, "damaged", kAny, text, kRoom, cut, nullptr, 0);
    const char* const password = plant_text("a password", 25);
    CHECK(KEY_Save, key.kind, 0, "saved", key.text, nullptr, nullptr, 0);
    CHECK(KEY_Save, "as PEM", 0, "saved", key.text, nullptr, nullptr, ZUL_KEY_FORMAT_PEM);
    CHECK(KEY_Save, "of its own", kAny, "saved", key.text, nullptr, nullptr,
          ZUL_KEY_FORMAT_OWN | ZUL_KEY_FORMAT_PEM);
    CHECK(KEY_Read, "of its own", kAny, text, kRoom, "saved", nullptr, 0);
    CHECK(KEY_Save, "cannot write", CREATE_ERROR, "none/saved", key.text, nullptr, nullptr, 0);
    for (const char* parameters : {"iterations=10", "iterations=10;hash=sha512;cipher=aes-128-cbc",
                                   "iterations=10;hash=sha1;cipher=tdea-cbc", "kdf=scrypt;n=16"}) {
        CHECK(KEY_Save, parameters, 0, "saved", key.text, password, parameters, 0);
        CHECK(KEY_Read, parameters, kPositive, text, kRoom, "saved", password, 0);
        CHECK(KEY_Read, "every wrong one", -DECRYPT_ERROR, text, kRoom, "saved", wrong, 0);
    }
    CHECK(KEY_Save, "a bad cost", OUT_OF_RANGE_ERROR, "saved", key.text, password, "kdf=scrypt;n=17", 0);
    char* const publicKey = public_of(key);
    CHECK(KEY_Public, key.kind, kPositive, text, kRoom, key.text);
    CHECK(KEY_Public, "no room", -SHORT_BUF_ERROR, text, 20, key.text);
    CHECK(KEY_Query, key.kind, 64, text, kRoom, key.text, "fingerprint", 0);
    CHECK(KEY_Query, "no such query", -BAD_QUERY_ERROR, text, kRoom, key.text, "secret", 0);
    CHECK(KEY_Match, key.kind, 0, key.text, publicKey);
    CHECK(KEY_Match, "another key", NO_MATCH_ERROR, other.text, publicKey);
    CHECK(KEY_Check, key.kind, 0, key.text, 0);
    char* const altered = joined(key.text, "");
    altered[100] = altered[100] == 'A' ? 'B' : 'A';
    CHECK(KEY_Check, "altered", INVALID_DATA_ERROR, altered, 0);
}

void check_agreement(const TestKey& key, const char* kind) {
    fresh();
    char pair[kRoom];
    KEY_Make(pair, kRoom - 1, kind, 0);
    CALL(KEY_Agree, kind, kPositive, out, 100, key.text, pair, 0);
    plant_bytes("a shared secret", out, 32, kNumber);
    LOOK(KEY_Agree, kind);
    CHECK(KEY_Agree, "no room", -SHORT_BUF_ERROR, out, 10, key.text, pair, 0);
    CHECK(KEY_Agree, "another kind", -BAD_KEY_ERROR, out, 100, key.text, keys[kRsa].text, 0);
}

void check_signing(const TestKey& key, const char* algorithm, int options) {
    fresh();
    const Byte* const message = plant("a message", 300);
    write_file("plain", message, 300);
    Byte* const signature = take(3000);
    CALL(SIG_Sign, algorithm, kPositive, signature, 3000, message, 300, key.text, algorithm, options);
    LOOK(SIG_Sign, algorithm);
    const int size = SIG_Sign(signature, 3000, message, 300, key.text, algorithm, options);
    CHECK(SIG_Sign, "no room", -SHORT_BUF_ERROR, out, 20, message, 300, key.text, algorithm, options);
    CHECK(SIG_Verify, algorithm, 0, signature, size, message, 300, key.text, algorithm, options);
    CHECK(SIG_VerifyFile, algorithm, 0, signature, size, "plain", key.text, algorithm, options);
    signature[size - 3] ^= 1;
    CHECK(SIG_Verify, "changed", SIGNATURE_ERROR, signature, size, message, 300, key.text, algorithm,
          options);
    CHECK(SIG_SignFile, algorithm, kPositive, signature, 3000, "plain", key.text, algorithm, options);
    CHECK(SIG_SignFile, "no file", -OPEN_ERROR, signature, 3000, "none", key.text, algorithm, options);
    if (strcmp(algorithm, "ed25519") == 0)
        return;
    const int digest = strstr(algorithm, "512") != nullptr || algorithm[1] == 'd' ? 64 : 32;
    CHECK(SIG_SignDigest, algorithm, kPositive, signature, 3000, message, digest, key.text, algorithm,
          options);
    CHECK(SIG_SignDigest, "a bad length", -BAD_LENGTH_ERROR, signature, 3000, message, 31, key.text,
          algorithm, options);
    CHECK(SIG_VerifyDigest, algorithm, kAny, signature, size, message, digest, key.text, algorithm, options);
}

} // namespace

void check_keys() {
    text = reinterpret_cast<char*>(take(kRoom + 1));
    out = take(3000);
    check_making();
    for (int kind = 0; kind < kKeyKinds; kind++)
        check_key(keys[kind], keys[kind == kRsa ? kOtherRsa : kRsa]);
    check_agreement(keys[kP256], "p-256");
    check_agreement(keys[kP384], "p-384");
    check_agreement(keys[kP521], "p-521");
    check_agreement(keys[kX25519], "x25519");
    check_signing(keys[kRsa], "rsa-sha256", 0);
    check_signing(keys[kRsa], "rsa-pss-sha256", 0);
    check_signing(keys[kP256], "ecdsa-sha256", 0);
    check_signing(keys[kP384], "ecdsa-sha512", ZUL_SIG_RAW);
    check_signing(keys[kP521], "ecdsa-sha512", ZUL_SIG_DETERMINISTIC);
    check_signing(keys[kEd25519], "ed25519", 0);
    check_signing(keys[kEd25519], "ed25519ph", 0);
}

} // namespace secrets
