#pragma once
#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "support/temp_dir.h"
#include "support/vectors.h"

// What nearly every test of the library's objects begins with.
using Bytes = std::vector<uint8_t>;

namespace test {

// The bytes that tests/data/hash/long_openssl.txt describes, or others like them.
inline Bytes sequence(size_t size, uint32_t x = 1) {
    Bytes bytes(size);
    for (uint8_t& byte : bytes) {
        x = x * 1103515245 + 12345;
        byte = static_cast<uint8_t>(x >> 24);
    }
    return bytes;
}

inline bool is_zero(const void* data, size_t size) {
    const auto* bytes = static_cast<const uint8_t*>(data);
    return std::count(bytes, bytes + size, 0) == static_cast<long>(size);
}

} // namespace test
