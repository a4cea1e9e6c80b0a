#include "module/known_answers.h"

#include <cstring>

#include "encode/hex.h"

namespace zul {

KnownBytes::KnownBytes(const char* hex) {
    const size_t digits = strlen(hex);
    if (digits > 2 * kMost || !hex_decode_strict(bytes_, &size_, hex, digits))
        size_ = 0;
}

bool KnownBytes::equals(const uint8_t* found, size_t size) const {
    return size > 0 && size == size_ && memcmp(found, bytes_, size) == 0;
}

} // namespace zul
