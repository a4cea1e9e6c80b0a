#pragma once
#include <cstddef>
#include <cstdint>

namespace zul {

// DesKey holds the key words of des_core.h. Held in a Wiped<DesKey>.
struct DesKey {
    uint64_t words[18];
};

// des_set_key expands a key; the parity bits are ignored.
void des_set_key(DesKey& key, const uint8_t bytes[8]);

// The modes over whole blocks of 8 bytes. out may be in itself, but may not overlap it otherwise; iv is left
// as the next call needs it to go on.
void des_ecb_encrypt(const DesKey& key, uint8_t* out, const uint8_t* in, size_t blocks);
void des_ecb_decrypt(const DesKey& key, uint8_t* out, const uint8_t* in, size_t blocks);
void des_cbc_encrypt(const DesKey& key, uint8_t iv[8], uint8_t* out, const uint8_t* in, size_t blocks);
void des_cbc_decrypt(const DesKey& key, uint8_t iv[8], uint8_t* out, const uint8_t* in, size_t blocks);

} // namespace zul
