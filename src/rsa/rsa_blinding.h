#pragma once
#include "rsa/rsa_key.h"

namespace zul {

// rsa_private_blinded is rsaPrivate on a number of key.bytes() bytes. It blinds the number with a random
// factor, so that its time says nothing about the key. The result is checked with the public key. 0, or
// BAD_KEY_ERROR with a text: the input is not below n, the key lacks a part or its values contradict each
// other; out is zero then.
[[nodiscard]] int rsa_private_blinded(const RsaKey& key, uint8_t* out, const uint8_t* in);

} // namespace zul
