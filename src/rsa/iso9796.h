#pragma once
#include <cstddef>
#include <cstdint>

#include "frame/memory.h"

// Message redundancy of ISO/IEC 9796-1: a number of bits bits, for signatures with message recovery.
namespace zul {

// iso9796_encode writes it right-aligned into out, after zeros: 0, or BAD_PARAM_ERROR if the message is empty
// or longer than half of it, or if it does not fit.
[[nodiscard]] int iso9796_encode(uint8_t* out, size_t outLen, const uint8_t* message, size_t length,
                                 size_t bits);

// iso9796_decode recovers a message from a block that ends with the number: 0, BAD_PARAM_ERROR if the block
// is shorter than the number, BAD_LENGTH_ERROR if it is too long for memory, or DECRYPT_ERROR if the
// redundancy is damaged.
[[nodiscard]] int iso9796_decode(SecretBuffer& message, const uint8_t* block, size_t blockLen, size_t bits);

} // namespace zul
