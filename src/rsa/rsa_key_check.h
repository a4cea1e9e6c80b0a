#pragma once
#include "rsa/rsa_key.h"

namespace zul {

// rsa_match_keys tells whether two key strings are a pair, and tries the private key: 0, NO_MATCH_ERROR,
// INVALID_DATA_ERROR (the private key does not work) or the code of opening a string, with a text.
[[nodiscard]] int rsa_match_keys(const char* privateString, const char* publicString);

// rsa_check_private_key tries a private key with its CRT values, and checks that d belongs to e: 0,
// TEST_FAILED_ERROR or another code of rsaPairwiseTest.
[[nodiscard]] int rsa_check_private_key(const RsaKey& key);

// rsa_key_hash_code gives a hash code of the public part: the first four bytes of the MD5 of its
// RSAPublicKey.
uint32_t rsa_key_hash_code(const RsaKey& key);

} // namespace zul
