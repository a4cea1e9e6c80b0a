#pragma once
#include <map>

#include "support/module_calls.h"

// Calls of KEY_ and SIG_ that tests of both need.
namespace test {

inline std::string make_key(const std::string& algorithm, int* code = nullptr) {
    return text_of([&](char* out, int room) { return KEY_Make(out, room, algorithm.c_str(), 0); }, code);
}
// kept_key makes one key for each kind; "kind/name" is another one of the kind.
inline const std::string& kept_key(const std::string& kind) {
    static std::map<std::string, std::string> keys;
    std::string& key = keys[kind];
    if (key.empty())
        key = make_key(kind.substr(0, kind.find('/')));
    return key;
}
inline std::string read_key(const std::string& fileOrText, const char* password = nullptr,
                            int* code = nullptr) {
    return text_of([&](char* out, int room) { return KEY_Read(out, room, fileOrText.c_str(), password, 0); },
                   code);
}
inline std::string read_der(const Bytes& der, int* code = nullptr) {
    return read_key(base64(der), nullptr, code);
}
inline std::string public_of(const std::string& key) {
    return text_of([&](char* out, int room) { return KEY_Public(out, room, key.c_str()); });
}
inline std::string ask_key(const std::string& key, const char* query) {
    std::string text(100, '\0'); // the result may be a number's value
    EXPECT_GE(KEY_Query(text.data(), 99, key.c_str(), query, 0), 0) << last_error();
    return text.c_str();
}

// sign_data is empty, with *code, after a failure.
inline Bytes sign_data(const Bytes& data, const std::string& key, const std::string& algorithm,
                       int options = 0, int* code = nullptr) {
    Bytes signature(3000);
    const int length = SIG_Sign(signature.data(), 3000, data.data(), static_cast<int>(data.size()),
                                key.c_str(), algorithm.c_str(), options);
    EXPECT_TRUE(length > 0 || code != nullptr) << algorithm << ": " << last_error();
    if (code != nullptr)
        *code = length < 0 ? -length : 0;
    signature.resize(static_cast<size_t>(length > 0 ? length : 0));
    return signature;
}
inline int verify_data(const Bytes& signature, const Bytes& data, const std::string& key,
                       const std::string& algorithm, int options = 0) {
    return SIG_Verify(signature.data(), static_cast<int>(signature.size()), data.data(),
                      static_cast<int>(data.size()), key.c_str(), algorithm.c_str(), options);
}

} // namespace test
