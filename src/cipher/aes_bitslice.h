#pragma once
#include "cipher/aes.h"

namespace zul {

// The block cipher in portable constant-time code, four blocks at a time.
constexpr size_t kBitsliceBlocks = 4;

// aes_bitslice_expand fills the round keys; see AesKernel::Expand.
void aes_bitslice_expand(AesKey& key, const uint8_t* bytes, size_t length, bool decryptToo);

// Over any number of blocks, out may be in itself.
void aes_bitslice_encrypt(const AesKey& key, uint8_t* out, const uint8_t* in, size_t blocks);
void aes_bitslice_decrypt(const AesKey& key, uint8_t* out, const uint8_t* in, size_t blocks);

} // namespace zul
