#pragma once
#include <cstddef>
#include <cstdint>

// Makers of enveloped messages (RFC 5652, 6): 0 or a positive code with a text. *count is the number of
// recipients for whom the message was encrypted.
namespace zul {

struct Seed {
    const uint8_t* bytes; // may be null
    size_t size;
};
[[nodiscard]] int make_enveloped_file(const char* path, const char* contentFile, const char* certList,
                                      Seed seed, int options, int* count);
[[nodiscard]] int make_enveloped_bytes(const char* path, const void* content, size_t size,
                                       const char* certList, Seed seed, int options, int* count);

} // namespace zul
