#include "cipher/aead.h"

#include "cipher/chacha20_poly1305.h"
#include "cipher/gcm.h"
#include "frame/err.h"
#include "frame/name_table.h"
#include "frame/wipe.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr NameRow kNames[] = {
    {"aes-128-gcm", static_cast<int>(Aead::aes128Gcm), false},
    {"aes-192-gcm", static_cast<int>(Aead::aes192Gcm), false},
    {"aes-256-gcm", static_cast<int>(Aead::aes256Gcm), false},
    {"chacha20-poly1305", static_cast<int>(Aead::chacha20Poly1305), false},
    {"aes-256-gcm-siv", static_cast<int>(Aead::aes256GcmSiv), false},
};

size_t key_size(Aead algorithm) {
    switch (algorithm) {
    case Aead::aes128Gcm:
        return 16;
    case Aead::aes192Gcm:
        return 24;
    case Aead::aes256Gcm:
    case Aead::chacha20Poly1305:
    case Aead::aes256GcmSiv:
        break;
    }
    return 32;
}

bool is_gcm(Aead algorithm) {
    return algorithm == Aead::aes128Gcm || algorithm == Aead::aes192Gcm || algorithm == Aead::aes256Gcm;
}

} // namespace

int aead_find(Aead& algorithm, const char* name) {
    int value = 0;
    const int error = name_find(kNames, name, &value);
    algorithm = static_cast<Aead>(value);
    return error;
}

int aead_check(Aead algorithm, const AeadInput& input) {
    if (input.keySize != key_size(algorithm))
        return err_fail(BAD_KEY_LEN_ERROR, "The key must have %d bytes",
                        static_cast<int>(key_size(algorithm)));
    if (is_gcm(algorithm) ? input.nonceSize == 0 : input.nonceSize != kChaChaNonce)
        return err_fail(BAD_IV_ERROR,
                        is_gcm(algorithm) ? "The nonce is empty" : "The nonce must have 12 bytes");
    return 0;
}

void aead_encrypt(Aead algorithm, uint8_t* out, const AeadInput& i) {
    uint8_t* const tag = out + i.size;
    if (algorithm == Aead::chacha20Poly1305) {
        chacha20_poly1305_encrypt(out, tag, i.key, i.nonce, i.aad, i.aadSize, i.data, i.size);
        return;
    }
    if (algorithm == Aead::aes256GcmSiv) {
        gcm_siv_encrypt(out, tag, i.key, i.keySize, i.nonce, i.aad, i.aadSize, i.data, i.size);
        return;
    }
    Wiped<AesKey> key;
    aes_set_encrypt_key(*key, i.key, i.keySize);
    gcm_encrypt(out, tag, *key, i.nonce, i.nonceSize, i.aad, i.aadSize, i.data, i.size);
}

int aead_decrypt(Aead algorithm, uint8_t* out, const AeadInput& i) {
    const uint8_t* const tag = i.data + i.size;
    bool isGood = false;
    if (algorithm == Aead::chacha20Poly1305) {
        isGood = chacha20_poly1305_decrypt(out, tag, i.key, i.nonce, i.aad, i.aadSize, i.data, i.size);
    } else if (algorithm == Aead::aes256GcmSiv) {
        isGood = gcm_siv_decrypt(out, tag, i.key, i.keySize, i.nonce, i.aad, i.aadSize, i.data, i.size);
    } else {
        Wiped<AesKey> key;
        aes_set_encrypt_key(*key, i.key, i.keySize);
        isGood = gcm_decrypt(out, tag, *key, i.nonce, i.nonceSize, i.aad, i.aadSize, i.data, i.size);
    }
    if (isGood)
        return 0;
    wipe_bytes(out, i.size);
    return DECRYPT_ERROR;
}

} // namespace zul
