#pragma once
#include <cstddef>
#include <cstdint>

#include "frame/memory.h"

// OAEP with an empty label and the same digest for the label and MGF1. Lengths are below 2^31.
namespace zul {

// oaep_encode fills out with a message: 0, BAD_FLAG_ERROR (no such digest) or SHORT_BUF_ERROR.
[[nodiscard]] int oaep_encode(uint8_t* out, size_t outLen, const uint8_t* message, size_t length,
                              int algorithm);

// oaep_decode sets content, which holds the message from *start to its end: 0, BAD_FLAG_ERROR,
// BAD_LENGTH_ERROR (a block too short for the digest, or too long for memory) or DECRYPT_ERROR. Its time
// depends on the block's length and the digest alone, except with MD2, which uses a table.
[[nodiscard]] int oaep_decode(SecretBuffer& content, size_t* start, const uint8_t* block, size_t length,
                              int algorithm);

} // namespace zul
