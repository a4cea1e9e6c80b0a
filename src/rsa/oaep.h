#pragma once
#include <cstddef>
#include <cstdint>

#include "frame/memory.h"

// OAEP with an empty label; the same digest serves the label and MGF1. Lengths are below 2^31.
namespace zul {

// oaep_encode fills out with a message: 0, -BAD_FLAG_ERROR (no such digest) or -SHORT_BUF_ERROR.
int oaep_encode(uint8_t* out, size_t outLen, const uint8_t* message, size_t length, int algorithm);

// oaep_decode gives the message's length; content holds the message from *start on. -BAD_FLAG_ERROR,
// -BAD_LENGTH_ERROR (a block too short for the digest, or too long for memory) or -DECRYPT_ERROR. How long it
// takes depends on the block's length and the digest alone, but for MD2 with its table.
int oaep_decode(SecretBuffer& content, size_t* start, const uint8_t* block, size_t length, int algorithm);

} // namespace zul
