#pragma once
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "support/temp_dir.h"
#include "support/vectors.h"
#include "zulcore.h"

// EXPECT_RESULT expects a result, and that its code is recorded as a positive one, whatever its sign.
#define EXPECT_RESULT(call, code) EXPECT_TRUE(test::has_result(call, code))
#define ASSERT_RESULT(call, code) ASSERT_TRUE(test::has_result(call, code))

// EXPECT_RECORDED tells the two apart.
#define EXPECT_RECORDED(call, result, recorded) EXPECT_TRUE(test::has_result(call, result, recorded))

// EXPECT_FAILURE expects the text of the last error too, EXPECT_FAILURE_WITH a part of it.
#define EXPECT_FAILURE(call, code, text) EXPECT_TRUE(test::has_failure(call, code, text))
#define EXPECT_FAILURE_WITH(call, code, part) EXPECT_TRUE(test::has_failure(call, code, part, true))

// Calls of the module that tests of many families need.
namespace test {

// last_error gives the text of the thread's last error.
inline std::string last_error() {
    std::string text(511, '\0');
    text.resize(static_cast<size_t>(ZUL_LastError(text.data(), 511)));
    return text;
}

inline testing::AssertionResult has_result(long long result, long long code, long long recorded) {
    if (result == code && ZUL_ErrorCode() == recorded)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << result << ", recorded " << ZUL_ErrorCode() << ", instead of "
                                       << code << ", " << recorded << "; text: " << last_error() << "; ";
}
inline testing::AssertionResult has_result(long long result, long long code) {
    return has_result(result, code, std::abs(code));
}
inline testing::AssertionResult has_failure(long long result, long long code, const std::string& text,
                                            bool isPart = false) {
    const std::string last = last_error();
    if (isPart ? last.find(text) != std::string::npos : last == text)
        return has_result(result, code);
    return testing::AssertionFailure()
           << result << " with text '" << last << "' instead of '" << text << "'; ";
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

// text_of gives the text, of any content, that a call writes into the room that it asks for. After a failure,
// which is one of the test unless code is there for it, the text is empty.
template<class Call>
std::string text_of(const Call& call, int* code = nullptr) {
    const int most = call(nullptr, 0);
    std::string text(static_cast<size_t>(std::max(most, 0)) + 2, '#');
    const int length = most > 0 ? call(text.data(), most) : most;
    EXPECT_LE(length, most);
    EXPECT_TRUE(length >= 0 || code != nullptr) << last_error();
    EXPECT_TRUE(length <= 0 || (text[static_cast<size_t>(length)] == '\0' && text.back() == '#'));
    if (code != nullptr)
        *code = length < 0 ? -length : 0;
    text.resize(static_cast<size_t>(std::max(length, 0)));
    return text;
}

} // namespace test
