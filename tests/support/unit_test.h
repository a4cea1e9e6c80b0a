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
