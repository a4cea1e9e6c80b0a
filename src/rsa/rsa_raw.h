#pragma once
#include <cstddef>
#include <cstdint>

namespace zul {

// rsa_raw_private and rsa_raw_public transform data in place with a key string; options are those of
// RSA_RawPrivate. 0 or a positive code, after which the data are untouched, but zeroed after SIGNATURE_ERROR.
[[nodiscard]] int rsa_raw_private(uint8_t* data, size_t length, const char* keyString, int options);
[[nodiscard]] int rsa_raw_public(uint8_t* data, size_t length, const char* keyString, int options);

} // namespace zul
