#include <cstdio>
#include <cstring>
#include <valgrind/memcheck.h>

#include "cipher/aead.h"
#include "cipher/aes.h"
#include "cipher/padding.h"
#include "ec/curve_operations.h"
#include "ec/ecdsa.h"
#include "ec/ed25519.h"
#include "ec/p256_field.h"
#include "ec/x25519.h"
#include "frame/constant_time.h"
#include "hash/digest.h"
#include "hash/hmac.h"
#include "pbe/hkdf.h"
#include "pbe/kdf.h"
#include "platform/cpu.h"
#include "rng/hmac_drbg.h"
#include "rsa/oaep.h"
#include "rsa/pkcs1_encryption.h"
#include "rsa/rsa_pss.h"

// Secrets are marked as undefined memory. Valgrind then reports every branch and every address that depends
// on one. What an operation gives out for all to see is declared defined again, here or by ct_declassify.

using namespace zul;

void zul::ct_mark_public(const void* value, size_t size) {
    VALGRIND_MAKE_MEM_DEFINED(value, size);
}

namespace {

// A number of bytes that are secret until they are revealed.
template<size_t N>
struct Hidden {
    uint8_t bytes[N];

    explicit Hidden(uint8_t first = 1) {
        for (size_t i = 0; i < N; i++)
            bytes[i] = static_cast<uint8_t>(first + 7 * i);
        hide();
    }
    void hide() { VALGRIND_MAKE_MEM_UNDEFINED(bytes, N); }
    void reveal() { VALGRIND_MAKE_MEM_DEFINED(bytes, N); }
    operator uint8_t*() { return bytes; }
};

volatile unsigned sink;
const unsigned kTable[256] = {1, 2, 3};

void leaking_branch() {
    Hidden<1> secret;
    if ((secret.bytes[0] & 1) != 0)
        sink = sink + 1;
}

void leaking_address() {
    Hidden<1> secret;
    sink = kTable[secret.bytes[0]];
}

template<EcCurve curve, int digestAlgorithm>
void ecdsa() {
    Hidden<kMaxEcBytes> d(0);
    uint8_t rs[2 * kMaxEcBytes];
    const uint8_t digest[32] = {1, 2, 3};
    (void)ecdsa_sign(rs, curve, d, digest, sizeof digest, digestAlgorithm, nullptr);
    Hidden<kEcdsaExtra> random;
    (void)ecdsa_sign(rs, curve, d, digest, sizeof digest, digestAlgorithm, random);
}

template<EcCurve curve>
void ecdh() {
    const EcOperations& operations = ec_operations(curve);
    Hidden<kMaxEcBytes> d(0), x;
    uint8_t point[2 * kMaxEcBytes];
    operations.public_key(point, d);
    VALGRIND_MAKE_MEM_DEFINED(point, sizeof point);
    operations.agree(x, d, point);
}

void ed25519() {
    Hidden<kEd25519Key> key;
    uint8_t publicKey[kEd25519Key], signature[kEd25519Signature];
    ed25519_public(publicKey, key);
    for (const Ed25519Form form : {Ed25519Form::pure, Ed25519Form::preHashed}) {
        Hidden<64> text;
        Ed25519Bytes message(text, 64);
        (void)ed25519_sign(signature, key, publicKey, message, form);
    }
}

void x25519_both() {
    Hidden<kX25519Bytes> key, shared;
    uint8_t u[kX25519Bytes];
    x25519_public(u, key);
    (void)x25519(shared, key, u);
}

void scalar_inversion() {
    Limbs<4> secret = {5, 6, 7, 8};
    VALGRIND_MAKE_MEM_UNDEFINED(&secret, sizeof secret);
    modular_inverse(secret, secret, P256Field::kOrder.p, P256Field::kBits);
}

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
                                kDigestSha3_256, kDigestSha3_512, kDigestShake128}) {
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

void rsa_pss() {
    Hidden<32> digest, salt;
    Hidden<256> encoded;
    for (const size_t bits : {size_t{2047}, size_t{2041}})
        pss_encode(encoded, {bits, kDigestSha256, kDigestSha512, 32}, digest, salt);
}

// Whether a block can be decrypted, and the length of its message, are told.
void rsa_decryption_blocks() {
    size_t start = 0;
    Hidden<128> block;
    (void)pkcs1_decrypt_block(block, 128, &start);
    block.reveal();
    if (pkcs1_encrypt_block(block, 128, block + 50, 20) != 0)
        return;
    block.hide();
    (void)pkcs1_decrypt_block(block, 128, &start);
    SecretBuffer content;
    (void)oaep_decode(content, &start, block, 128, kDigestSha1);
    block.reveal();
    if (oaep_encode(block, 128, block + 50, 20, kDigestSha256) != 0)
        return;
    block.hide();
    (void)oaep_decode(content, &start, block, 128, kDigestSha256);
}

void padding() {
    Hidden<16> block;
    sink = static_cast<unsigned>(ct_declassify(pad_count(block, 16)));
}

constexpr struct {
    const char* name;
    void (*run)();
    bool leaks = false;
} kCases[] = {
    {"a branch on a secret is noticed", leaking_branch, true},
    {"an address from a secret is noticed", leaking_address, true},
    {"ECDSA P-256", ecdsa<EcCurve::p256, kDigestSha256>},
    {"ECDSA P-384", ecdsa<EcCurve::p384, kDigestSha384>},
    {"ECDSA P-521", ecdsa<EcCurve::p521, kDigestSha512>},
    {"ECDH P-256", ecdh<EcCurve::p256>},
    {"ECDH P-384", ecdh<EcCurve::p384>},
    {"ECDH P-521", ecdh<EcCurve::p521>},
    {"Ed25519", ed25519},
    {"X25519", x25519_both},
    {"scalar inversion", scalar_inversion},
    {"AES-128-GCM", aead<Aead::aes128Gcm, 16>},
    {"AES-256-GCM", aead<Aead::aes256Gcm, 32>},
    {"AES-256-GCM-SIV", aead<Aead::aes256GcmSiv, 32>},
    {"ChaCha20-Poly1305", aead<Aead::chacha20Poly1305, 32>},
    {"comparison", comparison},
    {"AES modes", aes_modes},
    {"digests", digests},
    {"HMAC, PBKDF2, HKDF", macs_and_derivation},
    {"HMAC_DRBG", generator},
    {"RSA-PSS encoding", rsa_pss},
    {"RSA decryption blocks", rsa_decryption_blocks},
    {"padding", padding},
};

// run_all gives the number of cases that went wrong.
int run_all(const char* kernels) {
    int wrong = 0;
    for (const auto& test : kCases) {
        const auto before = VALGRIND_COUNT_ERRORS;
        test.run();
        const auto found = VALGRIND_COUNT_ERRORS - before;
        const bool isRight = (found > 0) == test.leaks;
        std::printf("%s: %s, %s: %u reports\n", isRight ? "good" : "WRONG", kernels, test.name,
                    static_cast<unsigned>(found));
        wrong += isRight ? 0 : 1;
    }
    return wrong;
}

} // namespace

int main() {
    if (RUNNING_ON_VALGRIND == 0) {
        std::puts("This program says nothing outside valgrind.");
        return 1;
    }
    // It computes neither with the newest instructions nor tells that it knows ADX.
    cpu_mask_features(kCpuAvx512 | kCpuAvx512Ifma | kCpuVaes | kCpuShani);
    if (!cpu_has(kCpuAesni | kCpuSsse3 | kCpuAvx2))
        std::puts("Some kernels need a newer processor and are not reached.");
    cpu_detail::features |= kCpuAdx;
    int wrong = run_all("kernels");
    cpu_mask_features(~kCpuDetected);
    wrong += run_all("portable");
    return wrong == 0 ? 0 : 1;
}
