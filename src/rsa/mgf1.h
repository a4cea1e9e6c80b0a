#pragma once
#include <cstddef>
#include <cstdint>

namespace zul {

// mgf1_xor adds the mask MGF1 (RFC 8017, B.2.1) of a seed to the target. algorithm is one that digest_length
// knows.
void mgf1_xor(uint8_t* target, size_t length, const uint8_t* seed, size_t seedLen, int algorithm);

} // namespace zul
