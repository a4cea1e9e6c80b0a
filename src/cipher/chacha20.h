#pragma once
#include <cstddef>
#include <cstdint>

// ChaCha20 (RFC 8439, 2.4).
namespace zul {

constexpr size_t kChaChaKey = 32, kChaChaNonce = 12, kChaChaBlock = 64;

// chacha20 adds the key stream from the block of that number on to size bytes. out may be in itself.
void chacha20(uint8_t* out, const uint8_t* in, size_t size, const uint8_t* key, const uint8_t* nonce,
              uint32_t block);

// chacha20_kernel names the code that runs now: "avx512", "avx2", "ssse3" or "portable".
const char* chacha20_kernel();

} // namespace zul
