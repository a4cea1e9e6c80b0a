#pragma once
#include <cstddef>
#include <cstdint>

namespace zul {

// hkdf (RFC 5869) extracts a key with the salt and expands it into outLen bytes, at most 255 times the
// digest's length. The algorithm is one that hmac_length knows.
void hkdf(uint8_t* out, size_t outLen, int hashAlg, const void* key, size_t keyLen, const void* salt,
          size_t saltLen, const void* info, size_t infoLen);

} // namespace zul
