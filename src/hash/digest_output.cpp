#include "hash/digest_output.h"

#include <algorithm>
#include <cstring>

#include "encode/hex.h"

namespace zul {

int digest_result(uint8_t* out, int outMax, const uint8_t* digest, int length) {
    if (out == nullptr || outMax < 1)
        return length;
    const int written = std::min(outMax, length);
    memcpy(out, digest, static_cast<size_t>(written));
    return written;
}

int digest_hex_result(char* out, int outChars, const uint8_t* digest, int length) {
    if (out == nullptr || outChars < 1)
        return 2 * length;
    const int bytes = outChars < 2 * length ? outChars / 2 : length;
    const auto size = static_cast<size_t>(bytes);
    return static_cast<int>(hex_encode_lower(out, 2 * size + 1, digest, size));
}

} // namespace zul
