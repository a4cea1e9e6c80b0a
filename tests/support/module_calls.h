#pragma once
#include <cstdint>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "support/temp_dir.h"
#include "support/vectors.h"
#include "zulcore.h"

// EXPECT_RESULT expects a result, and that its code is recorded as a positive one, whatever its sign.
#define EXPECT_RESULT(call, code)                                                                            \
    do {                                                                                                     \
        EXPECT_EQ(call, code);                                                                               \
        EXPECT_EQ(ZUL_ErrorCode(), std::abs(code));                                                          \
    } while (0)

// EXPECT_FAILURE expects the text of the last error too.
#define EXPECT_FAILURE(call, code, text)                                                                     \
    do {                                                                                                     \
        EXPECT_RESULT(call, code);                                                                           \
        EXPECT_EQ(test::last_error(), text);                                                                 \
    } while (0)

// Calls of the module that tests of many families need.
namespace test {

using Bytes = std::vector<uint8_t>;

// last_error gives the text of the thread's last error.
inline std::string last_error() {
    std::string text(511, '\0');
    text.resize(static_cast<size_t>(ZUL_LastError(text.data(), 511)));
    return text;
}

inline std::string base64(const Bytes& data) {
    std::string text((data.size() + 2) / 3 * 4, '\0');
    CNV_B64StrFromBytes(text.data(), static_cast<int>(text.size()), data.data(),
                        static_cast<int>(data.size()));
    return text;
}
inline Bytes from_base64(const std::string& text) {
    Bytes data(text.size());
    const int length = CNV_BytesFromB64Str(data.data(), static_cast<int>(data.size()), text.c_str());
    data.resize(length > 0 ? static_cast<size_t>(length) : 0);
    return data;
}

inline std::string pem(const Bytes& data) {
    return "-----BEGIN X-----\n" + base64(data) + "\n-----END X-----\n";
}
// der_of decodes a PEM block that a text begins with.
inline Bytes der_of(const std::string& pem) {
    const size_t begin = pem.find('\n');
    return from_base64(pem.substr(begin, pem.find("-----END") - begin));
}

// text_of gives the text, of any content, that a call writes; a failure gives an empty one.
template<class Call>
std::string text_of(Call call) {
    std::string text(90000, '\0'); // more than the longest key string
    const int length = call(text.data(), 89999);
    EXPECT_GE(length, 0) << last_error();
    text.resize(length > 0 ? static_cast<size_t>(length) : 0);
    return text;
}

} // namespace test
