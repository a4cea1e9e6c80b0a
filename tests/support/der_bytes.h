#pragma once
#include "support/vectors.h"

// DER put together by hand, in Bytes or in a std::string.
namespace test {

inline Bytes bytes_of(const std::string& text) {
    return {text.begin(), text.end()};
}
inline std::string text_from_hex(const std::string& hex) {
    const Bytes bytes = from_hex(hex);
    return {bytes.begin(), bytes.end()};
}
inline Bytes operator+(Bytes a, const Bytes& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

// element has its length in the fewest octets.
template<class Content = Bytes>
Content element(uint8_t identifier, const Content& content) {
    using Octet = typename Content::value_type;
    Content all;
    for (size_t rest = content.size(); rest != 0; rest >>= 8)
        all.insert(all.begin(), static_cast<Octet>(rest));
    if (content.size() >= 0x80 || content.empty())
        all.insert(all.begin(), static_cast<Octet>(content.empty() ? 0 : 0x80 | all.size()));
    all.insert(all.begin(), static_cast<Octet>(identifier));
    all.insert(all.end(), content.begin(), content.end());
    return all;
}
inline std::string element(uint8_t identifier, const char* content) {
    return element(identifier, std::string(content));
}

} // namespace test
