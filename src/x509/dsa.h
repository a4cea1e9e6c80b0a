#pragma once
#include <cstddef>
#include <cstdint>

#include "x509/subject_public_key.h"

namespace zul {

// dsa_verify checks a signature (FIPS 186-4, 4.7) r, s, both big-endian, of a digest: 0 if it verifies,
// else -1.
int dsa_verify(const DsaPublicKey& key, const uint8_t* digest, size_t digestLen, const uint8_t* r,
               size_t rLen, const uint8_t* s, size_t sLen);

} // namespace zul
