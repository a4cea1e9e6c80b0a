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

// digest_info_prefix gives the prefix of an algorithm; null for a number that has none.
const DigestInfoPrefix* digest_info_prefix(int algorithm);

// digest_info_match finds the prefix that content is made of, together with a digest and nothing else; null
// if there is none. Encodings that are not DER, or lack the parameters NULL, are none.
const DigestInfoPrefix* digest_info_match(const uint8_t* content, size_t length);

} // namespace zul
