#pragma once
#include <cstddef>
#include <cstdint>

// The encryption block of PKCS #1 v1.5 (block type 2). Lengths are below 2^31.
namespace zul {

constexpr size_t kPkcs1Overhead = 11; // 00, type, eight bytes of padding, 00

// pkcs1_encrypt_block fills out with a message and random padding: 0 or SHORT_BUF_ERROR.
[[nodiscard]] int pkcs1_encrypt_block(uint8_t* out, size_t outLen, const uint8_t* message, size_t length);

// pkcs1_decrypt_block finds where the message begins, which ends the block: 0 or DECRYPT_ERROR. Its time
// depends on the block's length alone.
[[nodiscard]] int pkcs1_decrypt_block(const uint8_t* block, size_t length, size_t* start);

} // namespace zul
