#pragma once
#include "frame/memory.h"

namespace zul {

struct P12UnpackOrder {
    const char* certsOut; // null or empty: no certificates
    bool wantsKey;
    size_t keyRoom; // characters of a key string
    const char* p12;
    const char* password; // null: empty
    int options;
};

// p12_unpack writes the certificates of a PKCS #12 file and gives a key string: 0 or a positive code with a
// text.
[[nodiscard]] int p12_unpack(SecretBuffer& keyString, const P12UnpackOrder& order);

} // namespace zul
