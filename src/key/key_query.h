#pragma once
#include "key/key.h"
#include "rsa/rsa_der.h"

namespace zul {

enum class KeyQuery { algorithm, bits, curve, isPrivate, fingerprint, exponent, hash, mgf, salt };

// key_query_find gives the query of a word, in any case: 0 or BAD_QUERY_ERROR with a text.
[[nodiscard]] int key_query_find(KeyQuery& query, const char* word);
[[nodiscard]] bool key_query_is_number(KeyQuery query);

constexpr size_t kKeyAnswer = 2 * (kMaxRsaBits / 8) + 1; // an exponent in hex, with the NUL

// key_query writes the answer as text and gives a number's value, 0 for a text.
int key_query(char (&answer)[kKeyAnswer], const Key& key, KeyQuery query);

} // namespace zul
