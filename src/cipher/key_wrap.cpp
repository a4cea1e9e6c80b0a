// Key wrap: AES of RFC 3394, Triple DES of RFC 3217.
#include "cipher/key_wrap.h"

#include <algorithm>
#include <climits>
#include <cstring>

#include "cipher/aes.h"
#include "cipher/tdes.h"
#include "frame/constant_time.h"
#include "frame/wipe.h"
#include "hash/sha1.h"
#include "zulcore.h"

namespace zul {

namespace {

constexpr size_t kHalf = 8; // a semiblock of RFC 3394, a block of Triple DES
constexpr uint8_t kAesCheck[kHalf] = {0xA6, 0xA6, 0xA6, 0xA6, 0xA6, 0xA6, 0xA6, 0xA6};
constexpr uint8_t kTdesOuterIv[kHalf] = {0x4A, 0xDD, 0xA2, 0x2C, 0x79, 0xE8, 0x21, 0x05};
constexpr size_t kTdesWrapBlocks = kTdesWrappedKey / kHalf;
constexpr int kAesRounds = 6;

void xor_counter(uint8_t* half, uint64_t counter) {
    for (size_t i = kHalf; i-- > 0; counter >>= 8)
        half[i] = static_cast<uint8_t>(half[i] ^ counter);
}

// The checksum of RFC 3217: the first eight bytes of the key's SHA-1.
void tdes_checksum(uint8_t out[kHalf], const uint8_t* key) {
    Wiped<Sha1Context> context;
    Secret<kSha1Size> digest;
    sha1_init(*context);
    sha1_update(*context, key, kTdesWrapKey);
    sha1_final(*context, digest.data());
    memcpy(out, digest.data(), kHalf);
}

} // namespace

int wrapped_key_length(CipherAlgorithm algorithm, int keyLength, int* length) {
    constexpr int overhead = int{kAesWrapOverhead};
    if (algorithm == CipherAlgorithm::tdea) {
        *length = int{kTdesWrappedKey};
        return keyLength == int{kTdesWrapKey} ? 0 : BAD_LENGTH_ERROR;
    }
    if (keyLength < 16 || keyLength % 8 != 0 || keyLength > INT_MAX - overhead)
        return BAD_LENGTH_ERROR;
    *length = keyLength + overhead;
    return 0;
}

int unwrapped_key_length(CipherAlgorithm algorithm, int wrappedLength, int* length) {
    if (algorithm == CipherAlgorithm::tdea) {
        *length = int{kTdesWrapKey};
        return wrappedLength == int{kTdesWrappedKey} ? 0 : BAD_LENGTH_ERROR;
    }
    if (wrappedLength < 24 || wrappedLength % 8 != 0)
        return BAD_LENGTH_ERROR;
    *length = wrappedLength - int{kAesWrapOverhead};
    return 0;
}

int aes_key_wrap(uint8_t* out, const uint8_t* data, size_t length, const uint8_t* kek, size_t kekLength) {
    Wiped<AesKey> key;
    if (!aes_set_encrypt_key(*key, kek, kekLength))
        return BAD_KEY_LEN_ERROR;
    memmove(out + kHalf, data, length);
    Secret<2 * kHalf> block; // the integrity register A, then one semiblock R[i]
    memcpy(block.data(), kAesCheck, kHalf);
    uint64_t counter = 1;
    for (int round = 0; round < kAesRounds; round++) {
        for (size_t i = kHalf; i <= length; i += kHalf, counter++) {
            memcpy(block.data() + kHalf, out + i, kHalf);
            aes_ecb_encrypt(*key, block.data(), block.data(), 1);
            xor_counter(block.data(), counter);
            memcpy(out + i, block.data() + kHalf, kHalf);
        }
    }
    memcpy(out, block.data(), kHalf);
    return 0;
}

int aes_key_unwrap(uint8_t* out, const uint8_t* data, size_t length, const uint8_t* kek, size_t kekLength) {
    Wiped<AesKey> key;
    if (!aes_set_key(*key, kek, kekLength))
        return BAD_KEY_LEN_ERROR;
    const size_t keyLength = length - kAesWrapOverhead;
    Secret<2 * kHalf> block;
    memcpy(block.data(), data, kHalf);
    memmove(out, data + kHalf, keyLength);
    uint64_t counter = static_cast<uint64_t>(kAesRounds) * (keyLength / kHalf);
    for (int round = 0; round < kAesRounds; round++) {
        for (size_t i = keyLength; i > 0; i -= kHalf, counter--) {
            memcpy(block.data() + kHalf, out + i - kHalf, kHalf);
            xor_counter(block.data(), counter);
            aes_ecb_decrypt(*key, block.data(), block.data(), 1);
            memcpy(out + i - kHalf, block.data() + kHalf, kHalf);
        }
    }
    if (bytes_equal(block.data(), kAesCheck, kHalf))
        return 0;
    wipe_bytes(out, keyLength);
    return kUnwrapFailed;
}

int tdes_key_wrap(uint8_t* out, const uint8_t* data, const uint8_t* kek, RandomBytes random) {
    Wiped<TdesKey> key;
    tdes_set_key(*key, kek);
    Secret<kTdesWrappedKey> work; // the random IV, the key, its checksum
    Secret<kHalf> iv;
    if (const int code = random(iv.data(), kHalf))
        return code;
    memcpy(work.data(), iv.data(), kHalf);
    memcpy(work.data() + kHalf, data, kTdesWrapKey);
    tdes_checksum(work.data() + kHalf + kTdesWrapKey, data);

    uint8_t* const inner = work.data() + kHalf;
    tdes_cbc_encrypt(*key, iv.data(), inner, inner, kTdesWrapBlocks - 1);
    std::reverse(work.data(), work.data() + kTdesWrappedKey);
    memcpy(iv.data(), kTdesOuterIv, kHalf);
    tdes_cbc_encrypt(*key, iv.data(), out, work.data(), kTdesWrapBlocks);
    return 0;
}

int tdes_key_unwrap(uint8_t* out, const uint8_t* data, const uint8_t* kek) {
    Wiped<TdesKey> key;
    tdes_set_key(*key, kek);
    Secret<kTdesWrappedKey> work;
    Secret<kHalf> iv;
    memcpy(iv.data(), kTdesOuterIv, kHalf);
    tdes_cbc_decrypt(*key, iv.data(), work.data(), data, kTdesWrapBlocks);
    std::reverse(work.data(), work.data() + kTdesWrappedKey);
    memcpy(iv.data(), work.data(), kHalf);
    uint8_t* const inner = work.data() + kHalf;
    tdes_cbc_decrypt(*key, iv.data(), inner, inner, kTdesWrapBlocks - 1);

    Secret<kHalf> checksum;
    tdes_checksum(checksum.data(), inner);
    if (!bytes_equal(checksum.data(), inner + kTdesWrapKey, kHalf)) {
        wipe_bytes(out, kTdesWrapKey);
        return kUnwrapFailed;
    }
    memcpy(out, inner, kTdesWrapKey);
    return 0;
}

} // namespace zul
