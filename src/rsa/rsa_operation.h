#pragma once
#include "rsa/rsa_key.h"

namespace zul {

// rsaPublic and rsaPrivate (RFC 8017, 5.1 and 5.2) take a big-endian number below n and write exactly
// key->bytes() bytes, whose number is returned in *outlen; output has room for them and may be input. 0,
// NULL_ERROR (no key), BAD_PARAM_ERROR (the key lacks the part, or its values cannot be computed with) or
// OUT_OF_RANGE_ERROR.
int rsaPublic(const RsaKey* key, uint8_t* output, size_t* outlen, const uint8_t* input, size_t inlen);
int rsaPrivate(const RsaKey* key, uint8_t* output, size_t* outlen, const uint8_t* input, size_t inlen);

} // namespace zul
