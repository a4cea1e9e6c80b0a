#pragma once
#include <cstddef>
#include <cstdint>

// Makers of enveloped messages (RFC 5652, 6): the number of recipients served, or a negated code with a text.
namespace zul {

struct Seed {
    const uint8_t* bytes; // may be null
    size_t size;
};
int make_enveloped_file(const char* path, const char* contentFile, const char* certList, Seed seed,
                        int options);
int make_enveloped_bytes(const char* path, const void* content, size_t size, const char* certList, Seed seed,
                         int options);

} // namespace zul
