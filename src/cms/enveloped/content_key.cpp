#include "cms/enveloped/content_key.h"

#include <cstring>

#include "cipher/padding.h"
#include "frame/constant_time.h"
#include "rng/rng.h"
#include "rsa/pkcs1_encryption.h"
#include "rsa/rsa_operation.h"

namespace zul {
namespace {

// block_is_good gives a mask: 00 02, eight or more bytes that are not 0, 00, and nothing but a key of the
// length. pkcs1_decrypt_block finds a message of any length, and so shows where it ends.
uint32_t block_is_good(const uint8_t* block, size_t start) {
    constexpr uint8_t kBlockType = 2;
    uint32_t good = mask_zero(block[0]) & mask_equal(block[1], kBlockType) & mask_zero(block[start - 1]);
    for (size_t i = 2; i < start - 1; i++)
        good &= ~mask_zero(block[i]);
    return good;
}

} // namespace

bool recover_content_key(const RsaKey& key, const uint8_t* encryptedKey, size_t length,
                         const ContentCipher& cipher, const LastBlock& last,
                         Secret<ContentCipher::kMaxKey>& contentKey, size_t* pad) {
    const size_t keyLength = cipher.key_length(), blockLength = cipher.block_length();
    if (length != key.bytes() || length < keyLength + kPkcs1Overhead)
        return false;
    rng_draw(contentKey.data(), keyLength);
    SecretBuffer block(length); // zero, and so no good one, if the operation fails
    size_t blockLen = 0;
    static_cast<void>(rsaPrivate(&key, block.data(), &blockLen, encryptedKey, length));

    const size_t start = length - keyLength;
    const uint32_t good = block_is_good(block.data(), start);
    for (size_t i = 0; i < keyLength; i++)
        contentKey[i] = static_cast<uint8_t>((contentKey[i] & ~good) | (block[start + i] & good));

    Secret<ContentCipher::kMaxBlock> plain;
    memcpy(plain.data(), last.block, blockLength);
    if (cipher.decrypt(contentKey.data(), last.chain, plain.data(), 1) != 0)
        return false;
    const size_t padding = pad_count(plain.data(), blockLength);
    if (ct_declassify(good & ~mask_zero(static_cast<uint32_t>(padding))) == 0)
        return false;
    *pad = ct_declassify(padding);
    return true;
}

} // namespace zul
