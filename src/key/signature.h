#pragma once
#include "frame/memory.h"
#include "key/signature_choice.h"
#include "key/signature_input.h"

// Signatures of any kind. options are those of SIG_.
namespace zul {

// signature_most gives the length of the longest signature: 0, or BAD_KEY_LEN_ERROR with a text for an RSA
// key that is too short for the algorithm.
[[nodiscard]] int signature_most(size_t* size, const Key& key, const SignatureAlgorithm& algorithm,
                                 int options);

// signature_make signs: 0 or a positive code with a text.
[[nodiscard]] int signature_make(SecretBuffer& signature, const Key& key, const SignatureAlgorithm& algorithm,
                                 SignatureInput& input, int options);

// signature_check: 0, SIGNATURE_ERROR with a text, or the code of an input that cannot be read.
[[nodiscard]] int signature_check(const uint8_t* signature, size_t size, const Key& key,
                                  const SignatureAlgorithm& algorithm, SignatureInput& input, int options);

} // namespace zul
