#pragma once
#include <cstddef>
#include <cstdint>

namespace zul {

// Block padding of PKCS #5 and RFC 5652: 1 to blockLength bytes are appended that each hold their count.
// Block lengths here are 8 or 16.
constexpr size_t kMaxPadding = 16;

// pad_bytes_needed is the number of pad bytes after length bytes of data.
constexpr size_t pad_bytes_needed(size_t length, size_t blockLength) {
    return blockLength - length % blockLength;
}

// pad_count checks the padding in the last block of padded data. Returns the number of pad bytes, 0 if they
// are damaged. Its time does not depend on the bytes. Callers whose result shows the number declassify it.
size_t pad_count(const uint8_t* lastBlock, size_t blockLength);

// pad_hex_count is pad_count over the 2 * blockLength characters of a last block in hex. A pad that is not
// hex is damaged; characters before the pad are not looked at.
size_t pad_hex_count(const char* lastBlock, size_t blockLength);

} // namespace zul
