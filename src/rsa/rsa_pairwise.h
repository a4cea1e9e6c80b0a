#pragma once
#include "rsa/rsa_key.h"

namespace zul {

// rsaPairwiseTest tests that the two halves of a key undo each other: 0, TEST_FAILED_ERROR,
// BAD_LENGTH_ERROR (a modulus below two bytes) or the code of an operation that failed.
[[nodiscard]] int rsaPairwiseTest(const RsaKey* key);

} // namespace zul
