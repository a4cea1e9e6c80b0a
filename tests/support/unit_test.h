#pragma once
#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "support/temp_dir.h"
#include "support/vectors.h"

// What nearly every test of the library's objects begins with.
using test::Bytes;

namespace test {

inline bool is_zero(const void* data, size_t size) {
    const auto* bytes = static_cast<const uint8_t*>(data);
    return std::count(bytes, bytes + size, 0) == static_cast<long>(size);
}

} // namespace test
