// Texts, digests, MACs, derivations: exports over bytes of the caller.
#include <cstring>

#include "secrets/secrets_test.h"

namespace secrets {

namespace {

const Byte kSalt[16] = {1, 2, 3, 4, 5, 6, 7, 8};
Byte* out = nullptr;
char* text = nullptr;
constexpr int kRoom = 4000;

char* hex_of(const Byte* bytes, int size) {
    CNV_HexStrFromBytes(text, kRoom, bytes, size);
    return joined(text, "");
}

void check_texts() {
    fresh();
    const Byte* const key = plant("a key", 96);
    char* const words = plant_text("a text", 90);
    CHECK(CNV_HexStrFromBytes, "writes", 192, text, kRoom, key, 96);
    CHECK(CNV_HexStrFromBytes, "is cut", 100, text, 100, key, 96);
    const char* const hex = joined(text, "");
    CHECK(CNV_BytesFromHexStr, "reads", 50, out, kRoom, hex);
    CHECK(CNV_HexFilter, "filters", 100, text, hex, 100);
    CHECK(CNV_B64StrFromBytes, "writes", 128, text, kRoom, key, 96);
    const char* const base64 = joined(text, "");
    CHECK(CNV_B64StrFromBytes, "is cut", 64, text, 66, key, 96);
    CHECK(CNV_BytesFromB64Str, "reads", 96, out, kRoom, base64);
    CHECK(CNV_BytesFromB64Str, "is cut", 48, out, 50, base64);
    CHECK(CNV_B64Filter, "filters", 128, text, base64, 128);
    CHECK(CNV_CheckUTF8, "looks", 1, words);
    CHECK(CNV_CheckUTF8Bytes, "looks", 0, key, 96);
    CHECK(CNV_UTF8FromLatin1, "converts", 90, text, kRoom, words);
    CHECK(CNV_UTF8BytesFromLatin1, "converts", 90, out, kRoom, words);
    CHECK(CNV_Latin1FromUTF8, "converts", 90, text, kRoom, words);
    char* const wrong = joined(words, "\xFF\xFE");
    CHECK(CNV_Latin1FromUTF8, "is refused", -INVALID_DATA_ERROR, text, kRoom, wrong);
    CHECK(CNV_Latin1FromUTF8Bytes, "converts", 90, text, kRoom, reinterpret_cast<Byte*>(words), 90);
    CHECK(CNV_ByteEncoding, "converts", kPositive, out, kRoom, key, 96, ZUL_CNV_UTF8_FROM_LATIN1);
    CHECK(CNV_ByteEncoding, "is refused", kAny, out, kRoom, key, 96, ZUL_CNV_LATIN1_FROM_UTF8);
    write_file("plain", key, 96);
    CHECK(PEM_FileFromBinFile, "writes", 0, "plain.pem", "plain", "KEY", 64);
    CHECK(PEM_FileFromBinFile, "cannot write", -CREATE_ERROR, "none/plain.pem", "plain", "KEY", 64);
    CHECK(PEM_FileToBinFile, "reads", 0, "plain.bin", "plain.pem");
    CHECK(PEM_FileToBinFile, "cannot write", -CREATE_ERROR, "none/plain.bin", "plain.pem");
    Byte* const mine = take(96);
    memcpy(mine, key, 96);
    CHECK(WIPE_Data, "wipes", 0, mine, 96);
}

void check_digests() {
    for (const int option : {ZUL_HASH_SHA1, ZUL_HASH_MD5, ZUL_HASH_MD2, ZUL_HASH_SHA256, ZUL_HASH_SHA384,
                             ZUL_HASH_SHA512, ZUL_HASH_SHA224}) {
        fresh();
        const Byte* const message = plant("a message", 300);
        const char* const hex = hex_of(message, 300);
        CHECK(HASH_Bytes, "digests", kPositive, out, 64, message, 300, option);
        CHECK(HASH_HexFromBytes, "digests", kPositive, text, kRoom, message, 300, option);
        CHECK(HASH_HexFromHex, "digests", kPositive, text, kRoom, hex, option);
        write_file("plain", message, 300);
        CHECK(HASH_File, "digests", kPositive, out, 64, "plain", option);
        CHECK(HASH_HexFromFile, "digests", kPositive, text, kRoom, "plain", option | ZUL_HASH_MODE_TEXT);
        if (option == ZUL_HASH_MD2)
            continue;
        for (const int size : {20, 64, 200}) {
            const Byte* const key = plant("a MAC's key", static_cast<size_t>(size));
            CHECK(HMAC_Bytes, "computes", kPositive, out, 64, message, 300, key, size, option);
            CHECK(HMAC_HexFromBytes, "computes", kPositive, text, kRoom, message, 300, key, size, option);
            const char* const keyHex = hex_of(key, size);
            CHECK(HMAC_HexFromHex, "computes", kPositive, text, kRoom, hex, keyHex, option);
            CHECK(HMAC_HexFromHex, "an odd length", -INVALID_DATA_ERROR, text, kRoom, joined(hex, "a"),
                  keyHex, option);
            CHECK(HMAC_HexFromHex, "a bad key", -BAD_FORMAT_ERROR, text, kRoom, hex, joined(keyHex, "g0"),
                  option);
        }
    }
    fresh();
    const Byte* const message = plant("a message", 40);
    const char* const oddHex = joined(hex_of(message, 40), "a");
    CHECK(HASH_Bytes, "no such digest", -BAD_FLAG_ERROR, out, 64, message, 40, 15);
    CHECK(HASH_HexFromHex, "an odd length", -INVALID_DATA_ERROR, text, kRoom, oddHex, 0);
    CHECK(HMAC_Bytes, "no such digest", -BAD_FLAG_ERROR, out, 64, message, 40, message, 40, ZUL_HASH_MD2);
}

void check_contexts() {
    Byte* const context = take(2000);
    for (const char* name :
         {"sha1", "md5", "sha256", "sha512", "sha512-256", "sha3-256", "sha3-512", "shake128"}) {
        fresh();
        const Byte* const message = plant("a message", 500);
        const bool hasHmac = strcmp(name, "shake128") != 0;
        CHECK(HASH_Begin, "begins", kPositive, context, 2000, name, 0);
        CHECK(HASH_Add, "a piece", 0, context, message, 150);
        CHECK(HASH_Add, "another piece", 0, context, message + 150, 350);
        CHECK(HASH_End, "ends", kPositive, out, 64, context);
        CHECK(HASH_Add, "an ended context", INVALID_DATA_ERROR, context, message, 150);
        if (!hasHmac)
            continue;
        const Byte* const key = plant("a MAC's key", 70);
        CHECK(HMAC_Begin, "begins", kPositive, context, 2000, key, 70, name, 0);
        CHECK(HMAC_Add, "a piece", 0, context, message, 150);
        CHECK(HMAC_Add, "another piece", 0, context, message + 150, 350);
        CHECK(HMAC_End, "ends", kPositive, out, 64, context);
        CHECK(HMAC_End, "an ended context", -INVALID_DATA_ERROR, out, 64, context);
        CHECK(HMAC_Begin, "no room", -SHORT_BUF_ERROR, context, 20, key, 70, name, 0);
    }
}

void check_derivations() {
    fresh();
    const Byte* const password = plant("a password", 30);
    for (const char* name : {"md5", "sha1", "sha256", "sha384", "sha512", "sha3-256", "sha512-256"}) {
        CALL(KDF_Pbkdf2, name, 80, out, 80, password, 30, kSalt, 16, 3, name);
        plant_bytes("a derived key", out, 80);
        LOOK(KDF_Pbkdf2, name);
        CALL(KDF_Hkdf, name, 100, out, 100, password, 30, kSalt, 16, kSalt, 4, name);
        plant_bytes("a derived key", out, 100);
        LOOK(KDF_Hkdf, name);
    }
    CHECK(KDF_Pbkdf2, "no such digest", -NOT_SUPPORTED_ERROR, out, 80, password, 30, kSalt, 16, 3, "md2");
    CHECK(KDF_Hkdf, "too long", -OUT_OF_RANGE_ERROR, out, 256 * 32, password, 30, kSalt, 16, kSalt, 4,
          "sha256");
    CALL(KDF_Scrypt, "derives", 64, out, 64, password, 30, kSalt, 16, 64, 8, 2);
    plant_bytes("a derived key", out, 64);
    LOOK(KDF_Scrypt, "derives");
    CHECK(KDF_Scrypt, "a bad cost", -OUT_OF_RANGE_ERROR, out, 64, password, 30, kSalt, 16, 63, 8, 2);
    CALL(KDF_Argon2id, "derives", 100, out, 100, password, 30, kSalt, 16, 256, 2, 2);
    plant_bytes("a derived key", out, 100);
    LOOK(KDF_Argon2id, "derives");
    CHECK(KDF_Argon2id, "a bad cost", -OUT_OF_RANGE_ERROR, out, 64, password, 30, kSalt, 16, 256, 0, 2);
}

} // namespace

void check_data() {
    out = take(1 << 16);
    text = reinterpret_cast<char*>(take(kRoom + 1));
    check_texts();
    check_digests();
    check_contexts();
    check_derivations();
}

} // namespace secrets
