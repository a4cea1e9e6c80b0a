#include <cstdio>
#include <cstring>
#include <valgrind/memcheck.h>

#include "cipher/aead.h"
#include "cipher/aes.h"
#include "cipher/cipher_stream.h"
#include "cipher/padding.h"
#include "cms/enveloped/content_key.h"
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
#include "pbe/pbe_cipher.h"
#include "pbe/pbe_params.h"
#include "pfx/p12_mac.h"
#include "pfx/p12_password.h"
#include "pfx/p12_scheme.h"
#include "pfx/pfx_mac.h"
#include "platform/cpu.h"
#include "rng/hmac_drbg.h"
#include "rsa/oaep.h"
#include "rsa/pkcs1_encryption.h"
#include "rsa/rsa_message.h"
#include "rsa/rsa_pss.h"
#include "seal/age_header.h"
#include "seal/age_keys.h"
#include "seal/bech32.h"
#include "zulcore.h"

// Secrets are marked as undefined memory. Valgrind then reports every branch and every address that depends
// on one. What an operation gives out for all to see is declared defined again, here or by ct_declassify.

using namespace zul;

void zul::ct_mark_public(const void* value, size_t size) {
    VALGRIND_MAKE_MEM_DEFINED(value, size);
}

int wrap_rsaPrivate(const RsaKey*, uint8_t*, size_t*, const uint8_t*,
                    size_t) __asm__(ZUL_WRAPPED_RSA_PRIVATE);

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

// A case that did not do what it should has shown nothing.
int unexpected = 0;
void expect(bool isRight) {
    unexpected += isRight ? 0 : 1;
}

// What the private operation of RSA, which is not of constant time, seems to give.
uint8_t privateResult[129];
int privateCalls = 0;
const unsigned kTable[256] = {1, 2, 3};

void leaking_branch() {
    Hidden<1> secret;
    if ((secret.bytes[0] & 1) != 0)
        sink = sink + 1;
}

// A comparison that ends at the first difference.
void leaking_comparison() {
    Hidden<16> a, b(2);
    for (size_t i = 0; i < 16 && a.bytes[i] == b.bytes[i]; i++)
        sink = sink + 1;
}

// A padding that is looked at from its end, as long as it is right.
void leaking_padding() {
    Hidden<16> block;
    unsigned count = 0;
    while (count < block.bytes[15] && block.bytes[15 - count] == block.bytes[15])
        count++;
    sink = count;
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

// Good blocks of both encodings, and blocks that are wrong at each of these places. Whether a block is good,
// and the length of its message, are told.
void rsa_messages() {
    constexpr size_t kBlock = 128, kMessage = 40;
    uint8_t message[kMessage];
    memset(message, 7, kMessage);
    for (const int options : {ZUL_EME_PKCSV1_5, ZUL_EME_OAEP, ZUL_EME_OAEP | ZUL_HASH_SHA256}) {
        for (const size_t wrongAt : {size_t{0}, size_t{1}, size_t{5}, kBlock - kMessage - 1, kBlock}) {
            Hidden<kBlock + 1> block;
            Hidden<kMessage> out;
            int length = 0;
            block.reveal();
            if (rsa_encode_message(block, kBlock, message, kMessage, options) != 0)
                return;
            block.bytes[wrongAt] = block.bytes[wrongAt] == 0 ? 1 : 0;
            block.hide();
            const int code = rsa_decode_message(out, kMessage, block, kBlock, options, &length);
            expect((code == 0) == (wrongAt == kBlock) && (code == 0 || code == DECRYPT_ERROR));
        }
    }
}

// The recipient's block is what stands for the result of the private operation (wrap_rsaPrivate), and the
// content's padding is good or wrong. That both are good is told, and then the length of the padding.
void content_keys() {
    constexpr size_t kBlock = 128;
    RsaKey key;
    key.bits = 8 * kBlock;
    for (const int option : {ZUL_CMS_CIPHER_AES128, ZUL_CMS_CIPHER_AES256}) {
        ContentCipher cipher;
        cipher.choose(option);
        const size_t keySize = cipher.key_length();
        for (const bool hasGoodPad : {true, false}) {
            uint8_t content[kAesBlock] = {}, encrypted[kBlock] = {};
            content[kAesBlock - 1] = hasGoodPad ? 1 : 77;
            const uint8_t contentKey[32] = {5, 6, 7};
            expect(cipher.encrypt(contentKey, cipher.iv(), content, 1) == 0);
            for (const size_t wrongAt :
                 {kBlock, size_t{0}, size_t{1}, size_t{2}, size_t{60}, kBlock - keySize - 1}) {
                expect(pkcs1_encrypt_block(privateResult, kBlock, contentKey, keySize) == 0);
                privateResult[wrongAt] = wrongAt < 2 ? 9 : static_cast<uint8_t>(privateResult[wrongAt] == 0);
                Secret<ContentCipher::kMaxKey> found;
                size_t pad = 0;
                const bool isFound =
                    recover_content_key(key, encrypted, kBlock, cipher, {cipher.iv(), content}, found, &pad);
                expect(isFound == (hasGoodPad && wrongAt == kBlock) && (!isFound || pad == 1));
            }
        }
    }
    expect(privateCalls != 0);
}

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

} // namespace

int wrap_rsaPrivate(const RsaKey*, uint8_t* out, size_t* outSize, const uint8_t*, size_t size) {
    memcpy(out, privateResult, size);
    VALGRIND_MAKE_MEM_UNDEFINED(out, size);
    *outSize = size;
    privateCalls++;
    return 0;
}

namespace {

constexpr struct {
    const char* name;
    void (*run)();
    bool leaks = false;
} kCases[] = {
    {"a branch on a secret is noticed", leaking_branch, true},
    {"an address from a secret is noticed", leaking_address, true},
    {"a comparison that stops is noticed", leaking_comparison, true},
    {"a padding that is counted is noticed", leaking_padding, true},
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
    {"RSA messages", rsa_messages},
    {"content keys", content_keys},
    {"password-based keys", password_based_keys},
    {"MACs of PKCS #12", pfx_macs},
    {"headers of sealed files", sealed_headers},
    {"padding", padding},
};

// run_all gives the number of cases that went wrong.
int run_all(const char* kernels) {
    int wrong = 0;
    for (const auto& test : kCases) {
        const auto before = VALGRIND_COUNT_ERRORS;
        unexpected = 0;
        test.run();
        const auto found = VALGRIND_COUNT_ERRORS - before;
        const bool isRight = (found > 0) == test.leaks && unexpected == 0;
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
