#include "algorithms.h"
#include "failures.h"
#include "streams.h"

namespace tool {

std::string file_digest(const std::string& file, int options) {
    constexpr int kMaxHex = 128; // 64 bytes, the longest digest
    Input input(file);
    char hex[kMaxHex + 1] = {};
    const int length = read_through_pipe(
        input, [&](const char* name) { return HASH_HexFromFile(hex, kMaxHex, name, options); });
    accept_length(length, file);
    return hex;
}

} // namespace tool
