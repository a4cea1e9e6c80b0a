#pragma once
#include <cstddef>
#include <cstdint>

namespace zul {

// Rc2Key holds the 64 words of RFC 2268's expanded key. Held in a Wiped<Rc2Key>.
struct Rc2Key {
    uint16_t words[64];
};

// rc2_set_key expands a key of 1 to 128 bytes with an effective length of 1 to 1024 bits. False for any other
// length, which leaves the structure as it was.
bool rc2_set_key(Rc2Key& key, const uint8_t* bytes, size_t length, unsigned effectiveBits);

// CBC over whole blocks of 8 bytes. out may be in itself, but may not overlap it otherwise; iv is left
// as the next call needs it to go on.
void rc2_cbc_encrypt(const Rc2Key& key, uint8_t iv[8], uint8_t* out, const uint8_t* in, size_t blocks);
void rc2_cbc_decrypt(const Rc2Key& key, uint8_t iv[8], uint8_t* out, const uint8_t* in, size_t blocks);

} // namespace zul
