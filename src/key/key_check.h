#pragma once
#include "key/key.h"

namespace zul {

// key_check tells whether a key's values belong together: a secret is in range and gives the public key, a
// public key is on its curve and not of small order, the two halves of an RSA key undo each other. 0 or
// BAD_KEY_ERROR; for an RSA key also the codes of rsa_check_private_key. With a text.
[[nodiscard]] int key_check(const Key& key);

// key_public_is_valid tells whether the public key of a kind other than RSA is on its curve, and not of small
// order.
[[nodiscard]] bool key_public_is_valid(const Key& key);

// key_check_exponent refuses exponents of RSA keys with which anybody makes signatures or that no private key
// has: 0 or BAD_KEY_ERROR with a text.
[[nodiscard]] int key_check_exponent(const Key& key);

// key_match: 0, NO_MATCH_ERROR, or the code of key_check for the private key, with a text.
[[nodiscard]] int key_match(const Key& privateKey, const Key& publicKey);

// key_agree writes the shared secret of a private key and another's public key (SP 800-56A, 5.7.1.2; RFC
// 7748, 6.1): size bytes, which key_agree_size gives. 0 or BAD_KEY_ERROR with a text.
[[nodiscard]] int key_agree_size(size_t* size, const Key& privateKey, const Key& publicKey);
[[nodiscard]] int key_agree(uint8_t* out, const Key& privateKey, const Key& publicKey);

} // namespace zul
