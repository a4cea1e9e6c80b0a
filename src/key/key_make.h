#pragma once
#include "key/key.h"

namespace zul {

struct KeyChoice {
    KeyKind kind;
    size_t bits; // of RSA
};

// key_choose gives the kind of a name: "rsa" (of 3072 bits), "rsa-N", "p-256", "p-384", "p-521", "ed25519",
// "x25519" and their other names. A code with a text as name_find, or OUT_OF_RANGE_ERROR for the bits.
[[nodiscard]] int key_choose(KeyChoice& choice, const char* name);

// key_make makes a private key: 0, or the code of rsaGenerateKeys. options: ZUL_KEY_SHOW_PROGRESS. A
// generator that fails ends the process.
[[nodiscard]] int key_make(Key& key, const KeyChoice& choice, int options);

} // namespace zul
