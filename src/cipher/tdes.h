#pragma once
#include <cstddef>
#include <cstdint>

namespace zul {

// TdesKey holds the key words of the three passes (des_core.h) in the order of encryption, and the key itself
// for the bit-sliced kernels. Held in a Wiped<TdesKey>.
struct TdesKey {
    uint64_t words[54];
    uint8_t bytes[24];
};

// tdes_set_key expands a three-key bundle; the parity bits are ignored and equal keys are accepted.
void tdes_set_key(TdesKey& key, const uint8_t bytes[24]);

// The modes of SP 800-38A over whole blocks of 8 bytes. out may be in itself, but may not overlap it
// otherwise; iv is left as the next call needs it to go on. CFB has segments of a whole block; the counter of
// CTR is the whole block as a big-endian number.
void tdes_ecb_encrypt(const TdesKey& key, uint8_t* out, const uint8_t* in, size_t blocks);
void tdes_ecb_decrypt(const TdesKey& key, uint8_t* out, const uint8_t* in, size_t blocks);
void tdes_cbc_encrypt(const TdesKey& key, uint8_t iv[8], uint8_t* out, const uint8_t* in, size_t blocks);
void tdes_cbc_decrypt(const TdesKey& key, uint8_t iv[8], uint8_t* out, const uint8_t* in, size_t blocks);
void tdes_cfb_encrypt(const TdesKey& key, uint8_t iv[8], uint8_t* out, const uint8_t* in, size_t blocks);
void tdes_cfb_decrypt(const TdesKey& key, uint8_t iv[8], uint8_t* out, const uint8_t* in, size_t blocks);
void tdes_ofb(const TdesKey& key, uint8_t iv[8], uint8_t* out, const uint8_t* in, size_t blocks);
void tdes_ctr(const TdesKey& key, uint8_t iv[8], uint8_t* out, const uint8_t* in, size_t blocks);

// tdes_kernel names the code that works on many blocks at once now: "avx512vbmi", "avx512", "avx2", "sse2" or
// "portable". What must go block after block, and short input, does not use it.
const char* tdes_kernel();

} // namespace zul
