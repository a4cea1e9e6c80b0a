// Keys and block ciphers of the schemes: RFC 8018, sections 6.1 and 6.2; RFC 7292, appendix B.
#include "pbe/pbe_cipher.h"

#include <cstring>

#include "cipher/cipher_context.h"
#include "frame/err.h"
#include "pbe/kdf.h"
#include "pbe/pbe.h"
#include "zulcore.h"

namespace zul {

namespace {

// By CipherAlgorithm: des-EDE3-CBC is 0, desCBC 1, rc2CBC 2, then AES.
constexpr int kSchemeNumbers[] = {0, 3, 4, 5, 1, 2};

[[nodiscard]] int cbc(const PbeParams& params, const uint8_t* key, bool encrypt, uint8_t* data,
                      size_t blocks) {
    CipherContext context;
    const CipherKey cipherKey = {key, params.keyLength, params.rc2Bits};
    if (context.init(params.cipher, CipherMode::cbc, encrypt, cipherKey, params.iv.data()) != 0)
        return err_fail(NOT_SUPPORTED_ERROR, "Encryption scheme (%d) not supported",
                        kSchemeNumbers[static_cast<size_t>(params.cipher)]);
    return context.update(data, data, blocks * params.ivLength);
}

void to_bmp(PbeParams& params) {
    if (params.bmp)
        return;
    params.password = pkcs12_password(params.password.data(), params.password.size());
    params.bmp = true;
}

} // namespace

void pbe_derive_key(PbeParams& params, Secret<kPbeMaxKey>& key) {
    const SecretBuffer& salt = params.salt;
    switch (params.scheme->kind) {
    case PbeKind::pbes1: {
        Secret<16> keyAndIv;
        pbkdf1(keyAndIv.data(), keyAndIv.size(), params.scheme->hashAlg, params.password.data(),
               params.password.size(), salt.data(), salt.size(), params.iterations);
        std::memcpy(key.data(), keyAndIv.data(), 8);
        std::memcpy(params.iv.data(), keyAndIv.data() + 8, 8);
        return;
    }
    case PbeKind::pkcs12: {
        to_bmp(params);
        const SecretBuffer& password = params.password;
        pkcs12_kdf(key.data(), params.keyLength, params.scheme->hashAlg, Pkcs12Purpose::key, password.data(),
                   password.size(), salt.data(), salt.size(), params.iterations);
        pkcs12_kdf(params.iv.data(), params.ivLength, params.scheme->hashAlg, Pkcs12Purpose::iv,
                   password.data(), password.size(), salt.data(), salt.size(), params.iterations);
        return;
    }
    case PbeKind::pbes2:
        pbkdf2(key.data(), params.keyLength, params.prf->hashAlg, params.password.data(),
               params.password.size(), salt.data(), salt.size(), params.iterations);
        return;
    }
}

int pbe_encrypt_blocks(const PbeParams& params, const Secret<kPbeMaxKey>& key, uint8_t* data, size_t blocks) {
    return cbc(params, key.data(), true, data, blocks);
}

int pbe_decrypt_blocks(const PbeParams& params, const Secret<kPbeMaxKey>& key, uint8_t* data, size_t blocks) {
    return cbc(params, key.data(), false, data, blocks);
}

} // namespace zul
