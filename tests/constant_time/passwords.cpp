// Keys of passwords, MACs of PKCS #12, and headers of sealed files.
#include "cipher/aes.h"
#include "constant_time/constant_time.h"
#include "hash/digest.h"
#include "pbe/pbe_cipher.h"
#include "pbe/pbe_params.h"
#include "pfx/p12_mac.h"
#include "pfx/p12_password.h"
#include "pfx/p12_scheme.h"
#include "pfx/pfx_mac.h"
#include "seal/age_header.h"
#include "seal/age_keys.h"
#include "seal/bech32.h"
#include "zulcore.h"

using namespace zul;

namespace constant_time {

namespace {

// Passwords are hidden up to their length, and the keys that are derived from them.
void password_based_keys() {
    for (const char* name : {"pkcs5PBES2", "pbeWithSHAAnd3-KeyTripleDES-CBC", "pbeWithSHA1AndDES-CBC"}) {
        PbeParams params;
        const PbeScheme* const scheme = pbe_scheme(name);
        expect(scheme != nullptr);
        if (scheme == nullptr)
            return;
        pbe_take_scheme(params, scheme);
        params.prf = pbe_prf_of(kDigestSha256);
        if (scheme->kind == PbeKind::pbes2)
            pbe_take_cipher(params, block_cipher(CipherAlgorithm::aes256));
        params.iterations = 3;
        params.salt = SecretBuffer(16);
        params.password = SecretBuffer(20);
        VALGRIND_MAKE_MEM_UNDEFINED(params.password.data(), 20);
        Secret<kPbeMaxKey> key;
        pbe_derive_key(params, key);
        if (scheme->kind != PbeKind::pbes2)
            continue; // the tables of DES are no secret of this library's
        Hidden<64> data;
        expect(pbe_decrypt_blocks(params, key, data, 4) == 0);
    }
}

void pfx_macs() {
    SecretBuffer safe(100);
    const AsnList macData = pfx_mac_data(safe, "password");
    expect(pfx_check_mac(macData.head(), safe, "password") == 0);
    expect(pfx_check_mac(macData.head(), safe, "passwort") == SIGNATURE_ERROR);
    P12Mac mac;
    mac.hashAlg = kDigestSha256;
    mac.keyLength = 32;
    mac.salt = SecretBuffer(8);
    mac.value = SecretBuffer(32);
    P12Password password("password");
    P12Work work;
    expect(p12_check_mac(mac, safe, password, work) == DECRYPT_ERROR);
}

void sealed_headers() {
    FileKey fileKey;
    AgeKey wrapKey;
    uint8_t wrapped[kWrappedFileKey];
    VALGRIND_MAKE_MEM_UNDEFINED(fileKey.data(), fileKey.size());
    VALGRIND_MAKE_MEM_UNDEFINED(wrapKey.data(), wrapKey.size());
    expect(!AgeHeader().is_of(fileKey));
    file_key_wrap(wrapped, fileKey, wrapKey);
    VALGRIND_MAKE_MEM_DEFINED(wrapped, sizeof wrapped);
    expect(file_key_unwrap(fileKey, wrapped, wrapKey));
    wrapped[20] ^= 1;
    expect(!file_key_unwrap(fileKey, wrapped, wrapKey));
    char text[bech32_key_length(kIdentityPrefix) + 1];
    bech32_write(text, kIdentityPrefix, wrapKey.data(), true);
}

constexpr Case kCases[] = {
    {"password-based keys", password_based_keys},
    {"MACs of PKCS #12", pfx_macs},
    {"headers of sealed files", sealed_headers},
};

} // namespace

std::span<const Case> password_cases() {
    return kCases;
}

} // namespace constant_time
