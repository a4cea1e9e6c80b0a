#pragma once
#include <cstddef>
#include <cstdint>

namespace zul {

// The DER of a DigestInfo up to its digest.
struct DigestInfoPrefix {
    int algorithm;
    size_t digestLength;
    size_t length;
    uint8_t bytes[19];
};

constexpr size_t kMaxDigestInfo = 19 + 64;

// digest_info_prefix gives the prefix of an algorithm; null for an unknown number.
const DigestInfoPrefix* digest_info_prefix(int algorithm);

// digest_info_match gives the prefix of a content that is a prefix and a digest and nothing else, otherwise
// null. It refuses other encodings: they are not DER, or lack the parameters NULL.
const DigestInfoPrefix* digest_info_match(const uint8_t* content, size_t length);

} // namespace zul
