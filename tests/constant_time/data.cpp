// Ciphers, digests, what is built of them, and paddings.
#include <cstring>

#include "cipher/aead.h"
#include "cipher/aes.h"
#include "cipher/cipher_stream.h"
#include "cipher/padding.h"
#include "constant_time/constant_time.h"
#include "frame/constant_time.h"
#include "hash/digest.h"
#include "hash/hmac.h"
#include "pbe/hkdf.h"
#include "pbe/kdf.h"
#include "rng/hmac_drbg.h"
#include "zulcore.h"

using namespace zul;

namespace constant_time {

namespace {

template<Aead algorithm, size_t keySize>
void aead() {
    constexpr size_t kSizes[] = {0, 5, 64, 1200};
    for (const size_t size : kSizes) {
        Hidden<keySize> key;
        Hidden<1200> plain;
        Hidden<1200 + kAeadTag> sealed;
        const uint8_t nonce[kAeadRandomNonce] = {1}, aad[20] = {2};
        AeadInput input = {key, nonce, aad, plain, keySize, sizeof nonce, sizeof aad, size};
        aead_encrypt(algorithm, sealed, input);
        sealed.reveal();
        input.data = sealed;
        (void)aead_decrypt(algorithm, plain, input);
        sealed.bytes[size] ^= 1;
        (void)aead_decrypt(algorithm, plain, input);
    }
}

void comparison() {
    Hidden<32> a, b(2);
    sink = bytes_equal(a, b, 32) ? 1 : 2;
}

void aes_modes() {
    Hidden<32> bytes;
    Hidden<37 * kAesBlock> data;
    uint8_t iv[kAesBlock] = {};
    for (const size_t size : {size_t{16}, size_t{24}, size_t{32}}) {
        AesKey key;
        aes_set_key(key, bytes, size);
        VALGRIND_MAKE_MEM_DEFINED(&key.rounds, sizeof key.rounds);
        aes_ecb_encrypt(key, data, data, 37);
        aes_ecb_decrypt(key, data, data, 37);
        aes_ctr(key, iv, data, data, 37);
        for (const auto mode :
             {aes_cbc_encrypt, aes_cbc_decrypt, aes_cfb_encrypt, aes_cfb_decrypt, aes_ofb}) {
            memset(iv, 0, sizeof iv);
            mode(key, iv, data, data, 37);
        }
        memset(iv, 0, sizeof iv);
    }
}

void digests() {
    for (const int algorithm : {kDigestSha1, kDigestMd5, kDigestSha256, kDigestSha512, kDigestSha384,
                                kDigestSha224, kDigestSha512_256, kDigestSha3_224, kDigestSha3_256,
                                kDigestSha3_384, kDigestSha3_512, kDigestShake128, kDigestShake256}) {
        Hidden<1500> data;
        Hidden<kMaxDigestSize> digest;
        DigestContext context;
        digest_init(context, algorithm);
        digest_update(context, data, 1500);
        digest_final(context, digest);
    }
}

void macs_and_derivation() {
    for (const int algorithm : {kDigestSha1, kDigestSha256, kDigestSha512, kDigestSha3_256}) {
        Hidden<200> key, message;
        Hidden<100> out;
        (void)hmac_bytes(out, kMaxDigestSize, message, 200, key, 200, algorithm);
        pbkdf2(out, 100, algorithm, key, 20, message, 16, 3);
        hkdf(out, 100, algorithm, key, 32, message, 16, message, 10);
    }
}

void generator() {
    Hidden<32> entropy, nonce, out;
    DrbgState drbg{};
    drbg_instantiate(drbg, entropy.bytes, nonce.bytes, {});
    drbg_generate(drbg, out, 32, {});
}

// Whether a padding is good, and its length, are told.
void padding() {
    for (const uint8_t count : {uint8_t{1}, uint8_t{5}, uint8_t{16}, uint8_t{0}, uint8_t{17}}) {
        for (const size_t wrongAt : {size_t{32}, size_t{31}, size_t{30}, size_t{16}}) {
            Hidden<33> data, out;
            data.reveal();
            memset(data.bytes + 16, count, 16);
            data.bytes[wrongAt] ^= 0x20;
            data.hide();
            (void)PAD_UnpadBytes(out, 32, data, 32, 16, 0);
        }
    }
    for (const bool isDamaged : {false, true}) {
        Hidden<32> key;
        Hidden<37> plain;
        Hidden<64> sealed, opened;
        const uint8_t iv[kAesBlock] = {3};
        Wiped<CipherStream> stream;
        size_t length = 0;
        expect(cipher_stream_begin(*stream, {"aes-256-cbc", key, iv, 32, sizeof iv, true, true}) == 0);
        cipher_stream_add(*stream, sealed, plain, 37);
        expect(cipher_stream_end(*stream, sealed + 32, length) == 0);
        sealed.reveal();
        sealed.bytes[31] ^= isDamaged ? 1 : 0;
        expect(cipher_stream_begin(*stream, {"aes-256-cbc", key, iv, 32, sizeof iv, false, true}) == 0);
        cipher_stream_add(*stream, opened, sealed, 48);
        expect(cipher_stream_end(*stream, opened, length) == (isDamaged ? DECRYPT_ERROR : 0));
    }
}

constexpr Case kCases[] = {
    {"AES-128-GCM", aead<Aead::aes128Gcm, 16>},
    {"AES-256-GCM", aead<Aead::aes256Gcm, 32>},
    {"AES-256-GCM-SIV", aead<Aead::aes256GcmSiv, 32>},
    {"ChaCha20-Poly1305", aead<Aead::chacha20Poly1305, 32>},
    {"comparison", comparison},
    {"AES modes", aes_modes},
    {"digests", digests},
    {"HMAC, PBKDF2, HKDF", macs_and_derivation},
    {"HMAC_DRBG", generator},
    {"padding", padding},
};

} // namespace

std::span<const Case> data_cases() {
    return kCases;
}

} // namespace constant_time
