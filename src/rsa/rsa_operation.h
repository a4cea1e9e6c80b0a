#pragma once
#include "rsa/rsa_key.h"

namespace zul {

// rsaPublic and rsaPrivate (RFC 8017, 5.1 and 5.2) take a big-endian number below n and write exactly
// key->bytes() bytes, whose number is returned in *outlen; output has room for them and may be input. 0 or a
// positive code, after which output is untouched:
// - NULL_ERROR: no key;
// - BAD_PARAM_ERROR: the key lacks the part, or cannot be computed with;
// - OUT_OF_RANGE_ERROR: the number is not below n;
// - TEST_FAILED_ERROR: the CRT result of rsaPrivate is wrong, because the key's values contradict each other
//   or the computation was disturbed. No unverified CRT result is given out.
[[nodiscard]] int rsaPublic(const RsaKey* key, uint8_t* output, size_t* outlen, const uint8_t* input,
                            size_t inlen);
[[nodiscard]] int rsaPrivate(const RsaKey* key, uint8_t* output, size_t* outlen, const uint8_t* input,
                             size_t inlen);

// rsa_private_unchecked sets m = c^d mod n, for c below n and a private key. A caller that gives m out
// verifies it before. False if the key cannot be computed with.
[[nodiscard]] bool rsa_private_unchecked(MT m, MT c, const RsaKey& key);

} // namespace zul
