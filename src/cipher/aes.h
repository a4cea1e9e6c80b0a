#pragma once
#include <cstddef>
#include <cstdint>

namespace zul {

constexpr size_t kAesBlock = 16;

// AesKey holds the round keys of both directions, in bytes and in the order of their use; those of decryption
// are the ones of FIPS 197's equivalent inverse cipher. Held in a Wiped<AesKey>.
struct AesKey {
    alignas(16) uint8_t encrypt[15][kAesBlock];
    alignas(16) uint8_t decrypt[15][kAesBlock];
    unsigned rounds;
};

// aes_set_key expands a key of 16, 24 or 32 bytes for both directions. False for another length, which leaves
// the structure as it was.
bool aes_set_key(AesKey& key, const uint8_t* bytes, size_t length);

// aes_set_encrypt_key is aes_set_key without the round keys of decryption: enough for everything but ECB and
// CBC decryption.
bool aes_set_encrypt_key(AesKey& key, const uint8_t* bytes, size_t length);

// The modes of SP 800-38A over whole blocks. out may be in itself, but may not overlap it otherwise; iv is
// left as the next call needs it to go on. CFB has segments of a whole block; the counter of CTR is the whole
// block as a big-endian number.
void aes_ecb_encrypt(const AesKey& key, uint8_t* out, const uint8_t* in, size_t blocks);
void aes_ecb_decrypt(const AesKey& key, uint8_t* out, const uint8_t* in, size_t blocks);
void aes_cbc_encrypt(const AesKey& key, uint8_t iv[kAesBlock], uint8_t* out, const uint8_t* in,
                     size_t blocks);
void aes_cbc_decrypt(const AesKey& key, uint8_t iv[kAesBlock], uint8_t* out, const uint8_t* in,
                     size_t blocks);
void aes_cfb_encrypt(const AesKey& key, uint8_t iv[kAesBlock], uint8_t* out, const uint8_t* in,
                     size_t blocks);
void aes_cfb_decrypt(const AesKey& key, uint8_t iv[kAesBlock], uint8_t* out, const uint8_t* in,
                     size_t blocks);
void aes_ofb(const AesKey& key, uint8_t iv[kAesBlock], uint8_t* out, const uint8_t* in, size_t blocks);
void aes_ctr(const AesKey& key, uint8_t iv[kAesBlock], uint8_t* out, const uint8_t* in, size_t blocks);

// aes_kernel names the code that the functions above run now: "vaes512", "vaes256", "aesni" or "portable".
const char* aes_kernel();

} // namespace zul
