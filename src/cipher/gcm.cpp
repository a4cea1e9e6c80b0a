#include "cipher/gcm.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "frame/constant_time.h"
#include "frame/wipe.h"

namespace zul {
namespace {

void write_big_endian(uint8_t* out, uint64_t value, size_t size) {
    for (size_t i = 0; i < size; i++)
        out[i] = static_cast<uint8_t>(value >> 8 * (size - 1 - i));
}

void write_little_endian(uint8_t* out, uint64_t value, size_t size) {
    for (size_t i = 0; i < size; i++)
        out[i] = static_cast<uint8_t>(value >> 8 * i);
}

size_t blocks_of(size_t bytes) {
    return (bytes + kAesBlock - 1) / kAesBlock;
}

// A last part of a block is encrypted with the key stream of one.
void last_part(const AesKey& key, uint8_t* counter, uint8_t* out, const uint8_t* in, size_t size) {
    Secret<kAesBlock> block;
    memcpy(block.data(), in, size);
    aes_ctr(key, counter, block.data(), block.data(), 1);
    memcpy(out, block.data(), size);
}

// One message under GCM.
class Gcm {
  public:
    Gcm(const AesKey& key, const uint8_t* nonce, size_t nonceSize, size_t aadSize, size_t size) : key_(key) {
        Secret<kAesBlock> zeros, h;
        aes_ecb_encrypt(key, h.data(), zeros.data(), 1);
        ghash_set_key(*hash_, h.data(), blocks_of(std::max({nonceSize, aadSize, size})));
        if (nonceSize == 12) {
            memcpy(counter_.data(), nonce, 12);
            counter_[15] = 1;
        } else {
            absorb(nonce, nonceSize);
            finish_hash(counter_.data(), 0, nonceSize);
        }
        aes_ecb_encrypt(key, tagMask_.data(), counter_.data(), 1);
        advance_counter(1);
    }

    void absorb(const uint8_t* data, size_t size) { polyval_update(state_->data(), *hash_, data, size); }

    // finish_hash absorbs the two lengths and begins a new hash.
    void finish_hash(uint8_t* out, uint64_t aadSize, uint64_t size) {
        uint8_t lengths[kPolyvalBlock];
        write_big_endian(lengths, 8 * aadSize, 8);
        write_big_endian(lengths + 8, 8 * size, 8);
        absorb(lengths, sizeof lengths);
        polyval_write(out, state_->data(), *hash_);
        *state_ = {};
    }

    void make_tag(uint8_t* tag, const uint8_t* aad, size_t aadSize, const uint8_t* encrypted, size_t size) {
        absorb(aad, aadSize);
        absorb(encrypted, size);
        finish_hash(tag, aadSize, size);
        for (size_t i = 0; i < kGcmTag; i++)
            tag[i] ^= tagMask_[i];
    }

    void encrypt(uint8_t* out, const uint8_t* in, size_t size) {
        // The counter has 32 bits and stays there, where that of CTR mode would carry.
        for (size_t blocks = size / kAesBlock; blocks > 0;) {
            const uint64_t left = (uint64_t{1} << 32) - counter();
            const auto run = static_cast<size_t>(std::min<uint64_t>(blocks, left));
            Secret<kAesBlock> start;
            memcpy(start.data(), counter_.data(), kAesBlock);
            aes_ctr(key_, start.data(), out, in, run);
            advance_counter(run);
            out += run * kAesBlock;
            in += run * kAesBlock;
            blocks -= run;
        }
        if (size % kAesBlock != 0)
            last_part(key_, counter_.data(), out, in, size % kAesBlock);
    }

  private:
    uint32_t counter() const {
        return static_cast<uint32_t>(counter_[12]) << 24 | static_cast<uint32_t>(counter_[13]) << 16 |
               static_cast<uint32_t>(counter_[14]) << 8 | counter_[15];
    }
    void advance_counter(size_t blocks) {
        write_big_endian(counter_.data() + 12, counter() + static_cast<uint32_t>(blocks), 4);
    }

    const AesKey& key_;
    Wiped<PolyvalKey> hash_;
    Wiped<std::array<uint64_t, 2>> state_;
    Secret<kAesBlock> counter_, tagMask_;
};

// The keys of one message under GCM-SIV (RFC 8452, 4).
struct SivKeys {
    Wiped<AesKey> encryption;
    Secret<16> authentication;

    SivKeys(const uint8_t* key, size_t keySize, const uint8_t* nonce) {
        Wiped<AesKey> generating;
        aes_set_encrypt_key(*generating, key, keySize);
        Secret<size_t{6} * 8> keys;
        for (size_t i = 0; i < 2 + keySize / 8; i++) {
            Secret<kAesBlock> block;
            block[0] = static_cast<uint8_t>(i);
            memcpy(block.data() + 4, nonce, kGcmSivNonce);
            aes_ecb_encrypt(*generating, block.data(), block.data(), 1);
            memcpy(keys.data() + 8 * i, block.data(), 8);
        }
        memcpy(authentication.data(), keys.data(), 16);
        aes_set_encrypt_key(*encryption, keys.data() + 16, keySize);
    }
};

void siv_tag(uint8_t* tag, const SivKeys& keys, const uint8_t* nonce, const uint8_t* aad, size_t aadSize,
             const uint8_t* plain, size_t size) {
    Wiped<PolyvalKey> hash;
    Wiped<std::array<uint64_t, 2>> state;
    polyval_set_key(*hash, keys.authentication.data(), blocks_of(std::max(aadSize, size)));
    polyval_update(state->data(), *hash, aad, aadSize);
    polyval_update(state->data(), *hash, plain, size);
    uint8_t lengths[kPolyvalBlock];
    write_little_endian(lengths, 8 * uint64_t{aadSize}, 8);
    write_little_endian(lengths + 8, 8 * uint64_t{size}, 8);
    polyval_update(state->data(), *hash, lengths, sizeof lengths);
    Secret<kAesBlock> block;
    polyval_write(block.data(), state->data(), *hash);
    for (size_t i = 0; i < kGcmSivNonce; i++)
        block[i] ^= nonce[i];
    block[15] &= 0x7F;
    aes_ecb_encrypt(*keys.encryption, tag, block.data(), 1);
}

// siv_ctr has a little-endian counter of 32 bits in front, which no kernel of CTR mode counts.
void siv_ctr(const SivKeys& keys, const uint8_t* tag, uint8_t* out, const uint8_t* in, size_t size) {
    constexpr size_t kTogether = 16;
    Secret<kTogether * kAesBlock> stream;
    uint32_t counter = static_cast<uint32_t>(tag[0]) | static_cast<uint32_t>(tag[1]) << 8 |
                       static_cast<uint32_t>(tag[2]) << 16 | static_cast<uint32_t>(tag[3]) << 24;
    while (size > 0) {
        const size_t blocks = std::min(kTogether, blocks_of(size));
        for (size_t i = 0; i < blocks; i++, counter++) {
            uint8_t* const block = stream.data() + i * kAesBlock;
            memcpy(block, tag, kAesBlock);
            write_little_endian(block, counter, 4);
            block[15] |= 0x80;
        }
        aes_ecb_encrypt(*keys.encryption, stream.data(), stream.data(), blocks);
        const size_t part = std::min(size, blocks * kAesBlock);
        for (size_t i = 0; i < part; i++)
            out[i] = in[i] ^ stream[i];
        out += part;
        in += part;
        size -= part;
    }
}

} // namespace

void gcm_encrypt(uint8_t* out, uint8_t* tag, const AesKey& key, const uint8_t* nonce, size_t nonceSize,
                 const uint8_t* aad, size_t aadSize, const uint8_t* in, size_t size) {
    Gcm gcm(key, nonce, nonceSize, aadSize, size);
    gcm.encrypt(out, in, size);
    gcm.make_tag(tag, aad, aadSize, out, size);
}

bool gcm_decrypt(uint8_t* out, const uint8_t* tag, const AesKey& key, const uint8_t* nonce, size_t nonceSize,
                 const uint8_t* aad, size_t aadSize, const uint8_t* in, size_t size) {
    Gcm gcm(key, nonce, nonceSize, aadSize, size);
    Secret<kGcmTag> expected;
    gcm.make_tag(expected.data(), aad, aadSize, in, size);
    if (!bytes_equal(expected.data(), tag, kGcmTag))
        return false;
    gcm.encrypt(out, in, size);
    return true;
}

void gcm_siv_encrypt(uint8_t* out, uint8_t* tag, const uint8_t* key, size_t keySize, const uint8_t* nonce,
                     const uint8_t* aad, size_t aadSize, const uint8_t* in, size_t size) {
    const SivKeys keys(key, keySize, nonce);
    siv_tag(tag, keys, nonce, aad, aadSize, in, size);
    siv_ctr(keys, tag, out, in, size);
}

bool gcm_siv_decrypt(uint8_t* out, const uint8_t* tag, const uint8_t* key, size_t keySize,
                     const uint8_t* nonce, const uint8_t* aad, size_t aadSize, const uint8_t* in,
                     size_t size) {
    const SivKeys keys(key, keySize, nonce);
    siv_ctr(keys, tag, out, in, size);
    Secret<kGcmTag> expected;
    siv_tag(expected.data(), keys, nonce, aad, aadSize, out, size);
    if (bytes_equal(expected.data(), tag, kGcmTag))
        return true;
    wipe_bytes(out, size);
    return false;
}

} // namespace zul
