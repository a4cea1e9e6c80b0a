#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "zulcore.h"

// Calls of the module that tests of many families need.
namespace test {

// last_error gives the text of the thread's last error.
inline std::string last_error() {
    std::string text(511, '\0');
    text.resize(static_cast<size_t>(ZUL_LastError(text.data(), 511)));
    return text;
}

inline std::string base64(const std::vector<uint8_t>& data) {
    std::string text((data.size() + 2) / 3 * 4, '\0');
    CNV_B64StrFromBytes(text.data(), static_cast<int>(text.size()), data.data(),
                        static_cast<int>(data.size()));
    return text;
}

} // namespace test
