// Ciphers, key wrapping, padding, authenticated encryption.
#include <cstring>

#include "secrets/secrets_test.h"

namespace secrets {

namespace {

constexpr int kData = 1200, kRoom = 4000;
Byte *out = nullptr, *again = nullptr;
char* text = nullptr;

char* hex_of(const Byte* bytes, int size) {
    CNV_HexStrFromBytes(text, kRoom, bytes, size);
    return joined(text, "");
}
char* base64_of(const Byte* bytes, int size) {
    CNV_B64StrFromBytes(text, kRoom, bytes, size);
    return joined(text, "");
}

struct Cipher {
    const char* name;
    size_t key;
    int block;
};

void check_cipher(const Cipher& cipher, const char* mode) {
    fresh();
    const Byte* const key = plant("a cipher's key", cipher.key);
    const Byte* const otherKey = plant("another key", cipher.key);
    const Byte* const plain = plant("plain text", kData);
    static const Byte iv[16] = {9, 8, 7};
    const char* const name = joined(cipher.name, "-", mode);
    const bool isBlocks = mode[1] == 'c' || strcmp(mode, "cbc") == 0;
    CHECK(CIPHER_Bytes, joined(name, " encrypts"), 0, 1, out, plain, kData, key, iv, name, 0);
    CHECK(CIPHER_Bytes, joined(name, " decrypts"), 0, 0, again, out, kData, key, iv, name, 0);
    CHECK(CIPHER_Bytes, joined(name, " short"), 0, 1, again, plain, cipher.block, key, iv, name, 0);
    if (isBlocks)
        CHECK(CIPHER_Bytes, joined(name, " no blocks"), BAD_LENGTH_ERROR, 1, again, plain, kData - 1, key, iv,
              name, 0);
    const char* const ivHex = hex_of(iv, cipher.block);
    const char* const keyHex = hex_of(key, static_cast<int>(cipher.key));
    const char* const plainHex = hex_of(plain, 64);
    CHECK(CIPHER_Hex, joined(name, " encrypts"), 0, 1, text, kRoom, plainHex, keyHex, ivHex, name, 0);
    const char* const sealedHex = joined(text, "");
    CHECK(CIPHER_Hex, joined(name, " decrypts"), 0, 0, text, kRoom, sealedHex, keyHex, ivHex, name, 0);
    CHECK(CIPHER_Hex, joined(name, " no room"), SHORT_BUF_ERROR, 0, text, 60, sealedHex, keyHex, ivHex, name,
          0);
    write_file("plain", plain, kData);
    CHECK(CIPHER_File, joined(name, " encrypts"), 0, 1, "sealed", "plain", key, iv, name, 0);
    CHECK(CIPHER_File, joined(name, " decrypts"), 0, 0, "opened", "sealed", key, iv, name, 0);
    CHECK(CIPHER_File, joined(name, " another key"), kAny, 0, "opened", "sealed", otherKey, iv, name, 0);
    CHECK(CIPHER_File, joined(name, " no output"), CREATE_ERROR, 0, "none/opened", "sealed", key, iv, name,
          0);

    Byte* const context = take(2000);
    const int ivSize = mode[0] == 'e' ? 0 : cipher.block;
    CHECK(CIPHER_Begin, name, kPositive, context, 2000, 1, key, static_cast<int>(cipher.key), iv, ivSize,
          name, 0);
    int done = 0;
    CALL(CIPHER_Add, name, kPositive, out, 1000, context, plain, 101);
    LOOK(CIPHER_Add, name);
    done = 101 / cipher.block * cipher.block;
    done = isBlocks ? done : 101;
    CHECK(CIPHER_Add, name, kPositive, out + done, kRoom, context, plain + 101, 300);
    done = isBlocks ? 401 / cipher.block * cipher.block : 401;
    CHECK(CIPHER_End, name, kAny, out + done, 100, context);
    done = isBlocks ? done + cipher.block : done;
    for (const Byte* with : {key, otherKey}) {
        CHECK(CIPHER_Begin, name, kPositive, context, 2000, 0, with, static_cast<int>(cipher.key), iv, ivSize,
              name, 0);
        CHECK(CIPHER_Add, "decrypts", kPositive, again, kRoom, context, out, done);
        CHECK(CIPHER_End, "decrypts", kAny, again + 500, 100, context);
    }
    CHECK(CIPHER_Begin, "no room", -SHORT_BUF_ERROR, context, 100, 0, key, static_cast<int>(cipher.key), iv,
          ivSize, name, 0);
    CHECK(CIPHER_Begin, "no such key", -BAD_KEY_LEN_ERROR, context, 2000, 0, key, 15, iv, ivSize, name, 0);
}

void check_tdea() {
    static const Byte iv[8] = {9, 8, 7};
    for (const char* mode : {"ECB", "CBC", "CFB", "OFB", "CTR"}) {
        fresh();
        const Byte* const key = plant("a cipher's key", 24);
        const Byte* const plain = plant("plain text", kData);
        CHECK(TDEA_BytesMode, mode, 0, out, plain, kData, key, 1, mode, iv);
        CHECK(TDEA_BytesMode, mode, 0, again, out, kData, key, 0, mode, iv);
        const char* const keyHex = hex_of(key, 24);
        const char* const plainHex = hex_of(plain, 64);
        CHECK(TDEA_HexMode, mode, 0, text, plainHex, keyHex, 1, mode, "0102030405060708");
        CHECK(TDEA_HexMode, "a bad IV", mode[0] == 'E' ? 0 : BAD_IV_ERROR, text, plainHex, keyHex, 1, mode,
              "01");
        const char* const key64 = base64_of(key, 24);
        const char* const shortKey64 = base64_of(key, 23);
        const char* const plain64 = base64_of(plain, 64);
        CHECK(TDEA_B64Mode, mode, 0, text, plain64, key64, 1, mode, "AQIDBAUGBwg=");
        CHECK(TDEA_B64Mode, "a short key", BAD_KEY_LEN_ERROR, text, plain64, shortKey64, 1, mode,
              "AQIDBAUGBwg=");
        write_file("plain", plain, kData);
        CHECK(TDEA_File, mode, 0, "sealed", "plain", key, 1, mode, iv);
        CHECK(TDEA_File, mode, 0, "opened", "sealed", key, 0, mode, iv);
    }
}

void check_wrapping() {
    static constexpr struct {
        int option, kek, key;
    } kWraps[] = {{ZUL_CIPHER_AES128, 16, 32},
                  {ZUL_CIPHER_AES192, 24, 24},
                  {ZUL_CIPHER_AES256, 32, 64},
                  {ZUL_CIPHER_TDEA, 24, 24}};
    for (const auto& w : kWraps) {
        fresh();
        const Byte* const key = plant("a wrapped key", static_cast<size_t>(w.key));
        const Byte* const kek = plant("a wrapping key", static_cast<size_t>(w.kek));
        const Byte* const other = plant("another key", static_cast<size_t>(w.kek));
        const int size = CIPHER_KeyWrap(nullptr, 0, key, w.key, kek, w.kek, w.option);
        CHECK(CIPHER_KeyWrap, "wraps", size, out, 100, key, w.key, kek, w.kek, w.option);
        CHECK(CIPHER_KeyWrap, "no room", -SHORT_BUF_ERROR, again, 10, key, w.key, kek, w.kek, w.option);
        CHECK(CIPHER_KeyWrap, "a bad length", -BAD_LENGTH_ERROR, again, 100, key, w.key - 1, kek, w.kek,
              w.option);
        CHECK(CIPHER_KeyUnwrap, "unwraps", w.key, again, 100, out, size, kek, w.kek, w.option);
        CHECK(CIPHER_KeyUnwrap, "another key", -1, again, 100, out, size, other, w.kek, w.option);
        CHECK(CIPHER_KeyUnwrap, "no room", -SHORT_BUF_ERROR, again, 10, out, size, kek, w.kek, w.option);
    }
}

void check_padding() {
    fresh();
    const Byte* const plain = plant("plain text", 100);
    for (const int block : {8, 16}) {
        CHECK(PAD_BytesBlock, "pads", kPositive, out, kRoom, plain, 100, block, 0);
        const int size = PAD_BytesBlock(out, kRoom, plain, 100, block, 0);
        CHECK(PAD_UnpadBytes, "unpads", 100, again, kRoom, out, size, block, 0);
        CHECK(PAD_UnpadBytes, "no room", -SHORT_BUF_ERROR, again, 50, out, size, block, 0);
        out[size - 2] ^= 1;
        CHECK(PAD_UnpadBytes, "a bad pad", -DECRYPT_ERROR, again, kRoom, out, size, block, 0);
        const char* const hex = hex_of(plain, 100);
        const char* const unpadded = hex_of(plain, 96);
        CHECK(PAD_HexBlock, "pads", 2 * size, text, kRoom, hex, block, 0);
        const char* const padded = joined(text, "");
        CHECK(PAD_UnpadHex, "unpads", 200, text, kRoom, padded, block, 0);
        CHECK(PAD_UnpadHex, "a bad pad", -DECRYPT_ERROR, text, kRoom, unpadded, block, 0);
    }
}

void check_aead() {
    static constexpr struct {
        const char* name;
        int key;
    } kAlgorithms[] = {{"aes-128-gcm", 16},
                       {"aes-192-gcm", 24},
                       {"aes-256-gcm", 32},
                       {"chacha20-poly1305", 32},
                       {"aes-256-gcm-siv", 32}};
    static const Byte nonce[12] = {4, 5};
    for (const auto& a : kAlgorithms) {
        for (const int size : {40, 700, kData}) {
            fresh();
            const Byte* const key = plant("a cipher's key", static_cast<size_t>(a.key));
            const Byte* const other = plant("another key", static_cast<size_t>(a.key));
            const Byte* const plain = plant("plain text", static_cast<size_t>(size));
            const int sealed = size + 16;
            CHECK(AEAD_Encrypt, a.name, sealed, out, kRoom, plain, size, key, a.key, nonce, 12, nonce, 5,
                  a.name, 0);
            CHECK(AEAD_Encrypt, "no room", -SHORT_BUF_ERROR, again, size, plain, size, key, a.key, nonce, 12,
                  nonce, 5, a.name, 0);
            CHECK(AEAD_Decrypt, a.name, size, again, kRoom, out, sealed, key, a.key, nonce, 12, nonce, 5,
                  a.name, 0);
            CHECK(AEAD_Decrypt, "another key", -DECRYPT_ERROR, again, kRoom, out, sealed, other, a.key, nonce,
                  12, nonce, 5, a.name, 0);
            out[3] ^= 1;
            CHECK(AEAD_Decrypt, "changed", -DECRYPT_ERROR, again, kRoom, out, sealed, key, a.key, nonce, 12,
                  nonce, 5, a.name, 0);
            CHECK(AEAD_Encrypt, "a random nonce", sealed + 12, out, kRoom, plain, size, key, a.key, nullptr,
                  0, nullptr, 0, a.name, ZUL_AEAD_RANDOM_NONCE);
        }
    }
}

} // namespace

void check_ciphers() {
    out = take(kRoom + 200);
    again = take(kRoom + 200);
    text = reinterpret_cast<char*>(take(kRoom + 1));
    static constexpr Cipher kCiphers[] = {
        {"aes-128", 16, 16}, {"aes-192", 24, 16}, {"aes-256", 32, 16}, {"tdea", 24, 8}};
    for (const Cipher& cipher : kCiphers)
        for (const char* mode : {"ecb", "cbc", "cfb", "ofb", "ctr"})
            check_cipher(cipher, mode);
    check_tdea();
    check_wrapping();
    check_padding();
    check_aead();
}

} // namespace secrets
