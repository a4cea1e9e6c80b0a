#include "secrets/probes.h"

#include <cstdio>

#include "cipher/aes.h"
#include "cipher/poly1305.h"
#include "cipher/polyval.h"
#include "cipher/rc2.h"
#include "cipher/tdes.h"
#include "hash/hmac.h"
#include "pbe/argon2.h"
#include "pbe/kdf.h"
#include "pbe/scrypt.h"
#include "secrets/search.h"

namespace {

using namespace secrets;

enum Probe {
    kAesBoth,
    kAesOne,
    kTdes,
    kRc2,
    kHmac,
    kPbkdf1,
    kPbkdf2,
    kPkcs12,
    kHkdf,
    kScrypt,
    kArgon2,
    kPoly1305,
    kGhash,
    kPolyval,
    kProbes
};
constexpr const char* kNames[kProbes] = {
    "AES key",         "AES encryption key", "Triple DES key", "RC2 key",     "HMAC key",
    "PBKDF1 output",   "PBKDF2 output",      "PKCS #12 key",   "HKDF output", "scrypt output",
    "Argon2id output", "Poly1305 key",       "GHASH key",      "POLYVAL key"};
bool hasSeen[kProbes];
bool isSalt = false; // the key of an HMAC is a salt

constexpr unsigned kDerived = kAsItIs | kReversed;

void tell(Probe probe, const void* bytes, size_t size, unsigned forms = kDerived) {
    hasSeen[probe] = hasSeen[probe] || is_watching();
    witness(kNames[probe], bytes, size, forms);
}

} // namespace

int secrets::missing_probes() {
    int missing = 0;
    for (int i = 0; i < kProbes; i++) {
        if (!hasSeen[i]) {
            printf("The probe of the %s has seen none\n", kNames[i]);
            missing++;
        }
    }
    return missing;
}

// ZUL_PROBE declares the function behind a symbol and begins the one that takes its place.
#define ZUL_PROBE(type, name, symbol, ...)                                                                   \
    type real_##name(__VA_ARGS__) __asm__("__real_" symbol);                                                 \
    type wrap_##name(__VA_ARGS__) __asm__("__wrap_" symbol);                                                 \
    type wrap_##name(__VA_ARGS__)

namespace zul {

ZUL_PROBE(bool, aes_set_key, "_ZN3zul11aes_set_keyERNS_6AesKeyEPKhm", AesKey& key, const uint8_t* bytes,
          size_t size) {
    const bool good = real_aes_set_key(key, bytes, size);
    tell(kAesBoth, bytes, size);
    tell(kAesBoth, key.encrypt, (key.rounds + 1) * kAesBlock, kAsItIs);
    tell(kAesBoth, key.decrypt, (key.rounds + 1) * kAesBlock, kAsItIs);
    return good;
}

ZUL_PROBE(bool, aes_set_encrypt_key, "_ZN3zul19aes_set_encrypt_keyERNS_6AesKeyEPKhm", AesKey& key,
          const uint8_t* bytes, size_t size) {
    const bool good = real_aes_set_encrypt_key(key, bytes, size);
    tell(kAesOne, bytes, size);
    tell(kAesOne, key.encrypt, (key.rounds + 1) * kAesBlock, kAsItIs);
    return good;
}

ZUL_PROBE(void, tdes_set_key, "_ZN3zul12tdes_set_keyERNS_7TdesKeyEPKh", TdesKey& key, const uint8_t* bytes) {
    real_tdes_set_key(key, bytes);
    tell(kTdes, bytes, 24);
    tell(kTdes, key.words, sizeof key.words, kAsItIs);
}

ZUL_PROBE(bool, rc2_set_key, "_ZN3zul11rc2_set_keyERNS_6Rc2KeyEPKhmj", Rc2Key& key, const uint8_t* bytes,
          size_t size, unsigned bits) {
    const bool good = real_rc2_set_key(key, bytes, size, bits);
    tell(kRc2, bytes, size);
    tell(kRc2, key.words, sizeof key.words, kAsItIs);
    return good;
}

ZUL_PROBE(void, hmac_init, "_ZN3zul9hmac_initERNS_11HmacContextEiPKvm", HmacContext& context, int algorithm,
          const void* key, size_t size) {
    real_hmac_init(context, algorithm, key, size);
    if (isSalt) {
        isSalt = false;
        return;
    }
    tell(kHmac, key, size, kDerived | kMacKey);
    for (const DigestContext* half : {&context.inner, &context.outer})
        tell(kHmac, &half->sha1, digest_length(algorithm) / 4 * 4, kAsItIs);
}

ZUL_PROBE(void, pbkdf1, "_ZN3zul6pbkdf1EPhmiPKvmPKhmj", uint8_t* out, size_t outSize, int algorithm,
          const void* password, size_t size, const uint8_t* salt, size_t saltSize, uint32_t iterations) {
    real_pbkdf1(out, outSize, algorithm, password, size, salt, saltSize, iterations);
    tell(kPbkdf1, out, outSize < 8 ? outSize : 8); // the rest may be an IV
}

ZUL_PROBE(void, pbkdf2, "_ZN3zul6pbkdf2EPhmiPKvmPKhmj", uint8_t* out, size_t outSize, int algorithm,
          const void* password, size_t size, const uint8_t* salt, size_t saltSize, uint32_t iterations) {
    real_pbkdf2(out, outSize, algorithm, password, size, salt, saltSize, iterations);
    tell(kPbkdf2, out, outSize > 4096 ? 4096 : outSize);
}

ZUL_PROBE(void, pkcs12_kdf, "_ZN3zul10pkcs12_kdfEPhmiNS_13Pkcs12PurposeEPKvmPKhmj", uint8_t* out,
          size_t outSize, int algorithm, Pkcs12Purpose purpose, const void* password, size_t size,
          const uint8_t* salt, size_t saltSize, uint32_t iterations) {
    real_pkcs12_kdf(out, outSize, algorithm, purpose, password, size, salt, saltSize, iterations);
    if (purpose != Pkcs12Purpose::iv)
        tell(kPkcs12, out, outSize);
}

ZUL_PROBE(void, hkdf, "_ZN3zul4hkdfEPhmiPKvmS2_mS2_m", uint8_t* out, size_t outSize, int algorithm,
          const void* key, size_t size, const void* salt, size_t saltSize, const void* info,
          size_t infoSize) {
    isSalt = true;
    real_hkdf(out, outSize, algorithm, key, size, salt, saltSize, info, infoSize);
    tell(kHkdf, key, size);
    tell(kHkdf, out, outSize);
}

ZUL_PROBE(int, scrypt, "_ZN3zul6scryptEPhmPKvmPKhmRKNS_10ScryptCostE", uint8_t* out, size_t outSize,
          const void* password, size_t size, const uint8_t* salt, size_t saltSize, const ScryptCost& cost) {
    const int code = real_scrypt(out, outSize, password, size, salt, saltSize, cost);
    if (code == 0)
        tell(kScrypt, out, outSize);
    return code;
}

ZUL_PROBE(int, argon2id, "_ZN3zul8argon2idEPhmRKNS_11Argon2InputERKNS_10Argon2CostE", uint8_t* out,
          size_t outSize, const Argon2Input& input, const Argon2Cost& cost) {
    const int code = real_argon2id(out, outSize, input, cost);
    if (code == 0)
        tell(kArgon2, out, outSize);
    return code;
}

ZUL_PROBE(void, poly1305, "_ZN3zul8Poly1305C1EPKh", void* self, const uint8_t* key) {
    real_poly1305(self, key);
    tell(kPoly1305, key, kPoly1305Key);
    tell(kPoly1305, self, sizeof(Poly1305), kAsItIs);
}

ZUL_PROBE(void, ghash_set_key, "_ZN3zul13ghash_set_keyERNS_10PolyvalKeyEPKhm", PolyvalKey& key,
          const uint8_t* h, size_t blocks) {
    real_ghash_set_key(key, h, blocks);
    tell(kGhash, h, kPolyvalBlock);
    tell(kGhash, key.powers[PolyvalKey::kPowers - key.count], key.count * kPolyvalBlock, kAsItIs);
}

ZUL_PROBE(void, polyval_set_key, "_ZN3zul15polyval_set_keyERNS_10PolyvalKeyEPKhm", PolyvalKey& key,
          const uint8_t* h, size_t blocks) {
    real_polyval_set_key(key, h, blocks);
    tell(kPolyval, h, kPolyvalBlock);
    tell(kPolyval, key.powers[PolyvalKey::kPowers - key.count], key.count * kPolyvalBlock, kAsItIs);
}

} // namespace zul
