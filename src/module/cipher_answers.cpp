#include <algorithm>
#include <cstring>

#include "cipher/aead.h"
#include "cipher/aes.h"
#include "cipher/chacha20.h"
#include "cipher/poly1305.h"
#include "cipher/polyval.h"
#include "cipher/tdes.h"
#include "frame/wipe.h"
#include "module/known_answers.h"

// Kernels work on many blocks side by side. A test of bulk work compares many blocks given at once with the
// same blocks given one or a few at a time, which the published answers cover.
namespace zul {

namespace {

// More than twice the blocks of the widest kernel, and a rest for every narrower one.
constexpr size_t kBulkBlocks = 71;

// Bytes that all differ from those a few blocks away.
template<size_t N>
void fill(uint8_t (&bytes)[N]) {
    for (size_t i = 0; i < N; i++)
        bytes[i] = static_cast<uint8_t>(i * i + (i >> 4));
}

// SP 800-67, appendix B; the standard's own spelling.
constexpr char kTdesKey[] = "0123456789abcdef23456789abcdef01456789abcdef0123";
constexpr char kTdesPlain[] = "The qufck brown fox jump";
constexpr char kTdesCipher[] = "a826fd8ce53b855fcce21c8112256fe668d5c05dd9b6b900";

// tdes_gives checks Copies copies of the known answer: ECB encrypts every copy alike.
template<size_t Copies>
bool tdes_gives(const TdesKey& key) {
    constexpr size_t kSize = sizeof kTdesPlain - 1, kBlocks = Copies * kSize / 8;
    const KnownBytes answer(kTdesCipher);
    uint8_t plain[Copies * kSize], cipher[Copies * kSize], found[Copies * kSize];
    for (size_t at = 0; at < sizeof plain; at += kSize) {
        memcpy(plain + at, kTdesPlain, kSize);
        memcpy(cipher + at, answer.data(), kSize);
    }
    tdes_ecb_encrypt(key, found, plain, kBlocks);
    if (memcmp(found, cipher, sizeof found) != 0)
        return false;
    tdes_ecb_decrypt(key, found, found, kBlocks);
    return memcmp(found, plain, sizeof found) == 0;
}

struct AesAnswer {
    const char *key, *cipher;
};

// FIPS 197, appendix C.
constexpr char kAesPlain[] = "00112233445566778899aabbccddeeff";
constexpr AesAnswer kAesAnswers[] = {
    {"000102030405060708090a0b0c0d0e0f", "69c4e0d86a7b0430d8cdb78070b4c55a"},
    {"000102030405060708090a0b0c0d0e0f1011121314151617", "dda97ca4864cdfe06eaf70a0ec0d7191"},
    {"000102030405060708090a0b0c0d0e0f101112131415161718191a1b1c1d1e1f", "8ea2b7ca516745bfeafc49904b496089"},
};

using AesMode = void(const AesKey& key, uint8_t iv[kAesBlock], uint8_t* out, const uint8_t* in,
                     size_t blocks);
struct AesModeAnswer {
    AesMode *encrypt, *decrypt;
    const char *iv, *cipher;
};

// SP 800-38A, F.2.1, F.3.13, F.4.1 and F.5.1: the first two blocks.
constexpr char kAesModeKey[] = "2b7e151628aed2a6abf7158809cf4f3c";
constexpr char kAesModePlain[] = "6bc1bee22e409f96e93d7e117393172aae2d8a571e03ac9c9eb76fac45af8e51";
constexpr char kAesIv[] = "000102030405060708090a0b0c0d0e0f";
constexpr AesModeAnswer kAesModeAnswers[] = {
    {aes_cbc_encrypt, aes_cbc_decrypt, kAesIv,
     "7649abac8119b246cee98e9b12e9197d5086cb9b507219ee95db113a917678b2"},
    {aes_cfb_encrypt, aes_cfb_decrypt, kAesIv,
     "3b3fd92eb72dad20333449f8e83cfb4ac8a64537a0b3a93fcde3cdad9f1ce58b"},
    {aes_ofb, aes_ofb, kAesIv, "3b3fd92eb72dad20333449f8e83cfb4a7789508d16918f03f53c52dac54ed825"},
    {aes_ctr, aes_ctr, "f0f1f2f3f4f5f6f7f8f9fafbfcfdfeff",
     "874d6191b620e3261bef6864990db6ce9806f66b7970fdff8617187bb9fffdff"},
};

bool aes_ecb_gives(const AesAnswer& answer) {
    const KnownBytes key(answer.key), plain(kAesPlain), cipher(answer.cipher);
    Wiped<AesKey> schedule;
    uint8_t blocks[kBulkBlocks][kAesBlock] = {};
    if (!aes_set_key(*schedule, key.data(), key.size()))
        return false;
    for (const size_t count : {size_t{1}, kBulkBlocks}) {
        for (uint8_t(&block)[kAesBlock] : blocks)
            memcpy(block, plain.data(), kAesBlock);
        aes_ecb_encrypt(*schedule, blocks[0], blocks[0], count);
        for (size_t i = 0; i < count; i++) {
            if (!cipher.equals(blocks[i], kAesBlock))
                return false;
        }
        aes_ecb_decrypt(*schedule, blocks[0], blocks[0], count);
        for (size_t i = 0; i < count; i++) {
            if (!plain.equals(blocks[i], kAesBlock))
                return false;
        }
    }
    return true;
}

bool aes_mode_gives(const AesKey& key, const AesModeAnswer& answer) {
    const KnownBytes plain(kAesModePlain), cipher(answer.cipher), start(answer.iv);
    uint8_t found[2 * kAesBlock], iv[kAesBlock];
    memcpy(iv, start.data(), kAesBlock);
    answer.encrypt(key, iv, found, plain.data(), 2);
    if (!cipher.equals(found, sizeof found))
        return false;
    memcpy(iv, start.data(), kAesBlock);
    answer.decrypt(key, iv, found, found, 2);
    return plain.equals(found, sizeof found);
}

bool aes_bulk_agrees(const AesKey& key, AesMode* mode) {
    uint8_t whole[kBulkBlocks * kAesBlock], parts[kBulkBlocks * kAesBlock];
    uint8_t ofWhole[kAesBlock] = {}, ofParts[kAesBlock] = {};
    fill(whole);
    memcpy(parts, whole, sizeof parts);
    mode(key, ofWhole, whole, whole, kBulkBlocks);
    constexpr size_t kFew = 3;
    for (size_t i = 0; i < kBulkBlocks; i += kFew)
        mode(key, ofParts, parts + i * kAesBlock, parts + i * kAesBlock, std::min(kFew, kBulkBlocks - i));
    return memcmp(whole, parts, sizeof whole) == 0;
}

struct AeadAnswer {
    Aead algorithm;
    const char *key, *nonce, *aad, *plain, *output; // the output ends with the tag
};

constexpr char kGcmNonce[] = "cafebabefacedbaddecaf888",
               kGcmAad[] = "feedfacedeadbeeffeedfacedeadbeefabaddad2";
constexpr char kGcmPlain[] =
    "d9313225f88406e5a55909c5aff5269a86a7a9531534f7da2e4c303d8a318a721c3c0c9595680953"
    "2fcf0e2449a6b525b16aedf5aa0de657ba637b39";

// D. McGrew and J. Viega, "The Galois/Counter Mode of Operation", test cases 4, 10 and 16; RFC 8452, C.2; RFC
// 8439, 2.8.2.
constexpr AeadAnswer kAeadAnswers[] = {
    {Aead::aes128Gcm, "feffe9928665731c6d6a8f9467308308", kGcmNonce, kGcmAad, kGcmPlain,
     "42831ec2217774244b7221b784d0d49ce3aa212f2c02a4e035c17e2329aca12e21d514b25466931c7d8f6a5aac84aa05"
     "1ba30b396a0aac973d58e0915bc94fbc3221a5db94fae95ae7121a47"},
    {Aead::aes192Gcm, "feffe9928665731c6d6a8f9467308308feffe9928665731c", kGcmNonce, kGcmAad, kGcmPlain,
     "3980ca0b3c00e841eb06fac4872a2757859e1ceaa6efd984628593b40ca1e19c7d773d00c144c525ac619d18c84a3f47"
     "18e2448b2fe324d9ccda27102519498e80f1478f37ba55bd6d27618c"},
    {Aead::aes256Gcm, "feffe9928665731c6d6a8f9467308308feffe9928665731c6d6a8f9467308308", kGcmNonce, kGcmAad,
     kGcmPlain,
     "522dc1f099567d07f47f37a32a84427d643a8cdcbfe5c0c97598a2bd2555d1aa8cb08e48590dbb3da7b08b1056828838"
     "c5f61e6393ba7a0abcc9f66276fc6ece0f4e1768cddf8853bb2d551b"},
    {Aead::aes256GcmSiv, "0100000000000000000000000000000000000000000000000000000000000000",
     "030000000000000000000000", "010000000000000000000000000000000000",
     "0200000000000000000000000000000003000000",
     "838190310de6def4da0fa87555efdd603a72ff18c9f3eab4462a400d841f89361140e93a"},
    {Aead::chacha20Poly1305, "808182838485868788898a8b8c8d8e8f909192939495969798999a9b9c9d9e9f",
     "070000004041424344454647", "50515253c0c1c2c3c4c5c6c7",
     "4c616469657320616e642047656e746c656d656e206f662074686520636c617373206f66202739393a20496620492063"
     "6f756c64206f6666657220796f75206f6e6c79206f6e652074697020666f7220746865206675747572652c2073756e73"
     "637265656e20776f756c642062652069742e",
     "d31a8d34648e60db7b86afbc53ef7ec2a4aded51296e08fea9e2b5a736ee62d63dbea45e8ca9671282fafb69da92728b"
     "1a71de0a9e060b2905d6a5b67ecd3b3692ddbd7f2d778b8c9803aee328091b58fab324e4fad675945585808b4831d7bc"
     "3ff4def08e4b7a9de576d26586cec64b6116"
     "1ae10b594f09e26a7e902ecbd0600691"},
};

bool aead_gives(const AeadAnswer& answer) {
    const KnownBytes key(answer.key), nonce(answer.nonce), aad(answer.aad), plain(answer.plain),
        output(answer.output);
    const size_t size = plain.size(), outputSize = size + kAeadTag;
    uint8_t found[KnownBytes::kMost + kAeadTag], back[KnownBytes::kMost];
    AeadInput input = {key.data(), nonce.data(), aad.data(), plain.data(),
                       key.size(), nonce.size(), aad.size(), size};
    if (aead_check(answer.algorithm, input) != 0)
        return false;
    aead_encrypt(answer.algorithm, found, input);
    if (!output.equals(found, outputSize))
        return false;
    input.data = found;
    if (aead_decrypt(answer.algorithm, back, input) != 0 || !plain.equals(back, size))
        return false;
    found[outputSize - 1] ^= 1;
    return aead_decrypt(answer.algorithm, back, input) != 0;
}

bool polyval_bulk_agrees(void (*set_key)(PolyvalKey& key, const uint8_t* h, size_t blocks)) {
    uint8_t data[kBulkBlocks * kPolyvalBlock];
    uint64_t ofWhole[2] = {}, ofParts[2] = {};
    PolyvalKey whole, parts;
    fill(data);
    set_key(whole, data, kBulkBlocks);
    set_key(parts, data, 1);
    polyval_update(ofWhole, whole, data, sizeof data);
    for (size_t i = 0; i < kBulkBlocks; i++)
        polyval_update(ofParts, parts, data + i * kPolyvalBlock, kPolyvalBlock);
    return memcmp(ofWhole, ofParts, sizeof ofWhole) == 0;
}

bool chacha20_bulk_agrees() {
    constexpr size_t kBlocks = 43;
    uint8_t whole[kBlocks * kChaChaBlock], parts[kBlocks * kChaChaBlock];
    fill(whole);
    memcpy(parts, whole, sizeof parts);
    uint8_t key[kChaChaKey], nonce[kChaChaNonce];
    fill(key);
    fill(nonce);
    chacha20(whole, whole, sizeof whole, key, nonce, 1);
    for (uint32_t i = 0; i < kBlocks; i++)
        chacha20(parts + i * kChaChaBlock, parts + i * kChaChaBlock, kChaChaBlock, key, nonce, 1 + i);
    return memcmp(whole, parts, sizeof whole) == 0;
}

bool poly1305_bulk_agrees() {
    uint8_t data[kBulkBlocks * kPoly1305Block], ofWhole[kPoly1305Tag], ofParts[kPoly1305Tag];
    fill(data);
    Poly1305 whole(data), parts(data);
    whole.absorb_padded(data, sizeof data);
    for (size_t i = 0; i < kBulkBlocks; i++)
        parts.absorb_padded(data + i * kPoly1305Block, kPoly1305Block);
    whole.finish(ofWhole);
    parts.finish(ofParts);
    return memcmp(ofWhole, ofParts, sizeof ofWhole) == 0;
}

bool aead_bulk_agrees(Aead algorithm) {
    switch (algorithm) {
    case Aead::chacha20Poly1305:
        return chacha20_bulk_agrees() && poly1305_bulk_agrees();
    case Aead::aes256GcmSiv:
        return polyval_bulk_agrees(polyval_set_key);
    case Aead::aes128Gcm:
        return polyval_bulk_agrees(ghash_set_key);
    case Aead::aes192Gcm:
    case Aead::aes256Gcm:
        break; // the same code
    }
    return true;
}

} // namespace

// Tests one block after the other, and every lane of the widest kernel for many blocks.
bool tdes_holds(int) {
    constexpr size_t kForEveryLane = 171; // 513 blocks
    Wiped<TdesKey> key;
    tdes_set_key(*key, KnownBytes(kTdesKey).data());
    return tdes_gives<1>(*key) && tdes_gives<kForEveryLane>(*key);
}

bool aes_holds(int) {
    for (const AesAnswer& answer : kAesAnswers) {
        if (!aes_ecb_gives(answer))
            return false;
    }
    const KnownBytes bytes(kAesModeKey);
    Wiped<AesKey> key;
    if (!aes_set_key(*key, bytes.data(), bytes.size()))
        return false;
    for (const AesModeAnswer& answer : kAesModeAnswers) {
        if (!aes_mode_gives(*key, answer) || !aes_bulk_agrees(*key, answer.decrypt))
            return false;
    }
    return true;
}

bool aead_holds(int algorithm) {
    for (const AeadAnswer& answer : kAeadAnswers) {
        if (answer.algorithm == static_cast<Aead>(algorithm))
            return aead_gives(answer) && aead_bulk_agrees(answer.algorithm);
    }
    return false;
}

} // namespace zul
