// Encodings of RSA, and the content keys of CMS.
#include <cstring>

#include "cms/enveloped/content_key.h"
#include "constant_time/constant_time.h"
#include "hash/digest.h"
#include "rsa/oaep.h"
#include "rsa/pkcs1_encryption.h"
#include "rsa/rsa_message.h"
#include "rsa/rsa_pss.h"
#include "zulcore.h"

using namespace zul;

int wrap_rsaPrivate(const RsaKey*, uint8_t*, size_t*, const uint8_t*,
                    size_t) __asm__(ZUL_WRAPPED_RSA_PRIVATE);

namespace constant_time {

namespace {

// What the private operation of RSA, which is not of constant time, seems to give.
uint8_t privateResult[129];
int privateCalls = 0;

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

constexpr Case kCases[] = {
    {"RSA-PSS encoding", rsa_pss},
    {"RSA decryption blocks", rsa_decryption_blocks},
    {"RSA messages", rsa_messages},
    {"content keys", content_keys},
};

} // namespace

std::span<const Case> rsa_cases() {
    return kCases;
}

} // namespace constant_time

int wrap_rsaPrivate(const RsaKey*, uint8_t* out, size_t* outSize, const uint8_t*, size_t size) {
    memcpy(out, constant_time::privateResult, size);
    VALGRIND_MAKE_MEM_UNDEFINED(out, size);
    *outSize = size;
    constant_time::privateCalls++;
    return 0;
}
