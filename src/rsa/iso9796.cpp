// ISO/IEC 9796-1 (1991), with messages of whole bytes. Places are counted from the end of the number. The
// bytes at even places (0, 2 ...) repeat the message, beginning with its last byte. Each odd place holds the
// shadow of the byte at the place below it.
#include "rsa/iso9796.h"

#include <algorithm>
#include <cstring>

#include "zulcore.h"

namespace zul {

namespace {

constexpr uint8_t kShadow[16] = {0xE, 0x3, 0x5, 0x8, 0x9, 0x4, 0x2, 0xF,
                                 0x0, 0xD, 0xB, 0x6, 0x7, 0xA, 0xC, 0x1};
constexpr uint8_t kMarker = 1;  // in the shadow of the message's first byte
constexpr uint8_t kTrailer = 6; // the last half-byte

uint8_t shadow(uint8_t byte) {
    return static_cast<uint8_t>(kShadow[byte >> 4] << 4 | kShadow[byte & 0xF]);
}

uint8_t digit_of_shadow(uint8_t value) {
    return static_cast<uint8_t>(std::find(kShadow, kShadow + 16, value) - kShadow);
}

// The redundancy has size bytes; the first of them is cut to its lower bits, the highest of which is set.
struct Shape {
    size_t size;
    uint8_t topBit;
    uint8_t lowerBits() const { return static_cast<uint8_t>(topBit - 1); }
};

Shape shape_of(size_t bits) {
    return {(bits + 7) / 8, static_cast<uint8_t>(1u << (bits - 1) % 8)};
}

// byte_at gives the byte of a place, before the trailer is set and the first byte cut.
uint8_t byte_at(size_t place, const uint8_t* message, size_t length) {
    const uint8_t byte = message[length - 1 - place / 2 % length];
    if (place % 2 == 0)
        return byte;
    return place == 2 * length - 1 ? shadow(byte) ^ kMarker : shadow(byte);
}

void fill(uint8_t* out, const Shape& shape, const uint8_t* message, size_t length) {
    for (size_t place = 0; place < shape.size; place++)
        out[shape.size - 1 - place] = byte_at(place, message, length);
    uint8_t& last = out[shape.size - 1];
    last = static_cast<uint8_t>(last << 4 | kTrailer);
    out[0] = static_cast<uint8_t>((out[0] & shape.lowerBits()) | shape.topBit);
}

// is_marked tells whether a shadow is changed. That marks the byte below it as the first of the message.
bool is_marked(const uint8_t* number, size_t size, size_t place) {
    const uint8_t byte = number[size - place], found = number[size - 1 - place];
    // The trailer has replaced half of the last byte; the other half is its upper one.
    return place == 1 ? kShadow[byte >> 4] != (found & 0xF) : shadow(byte) != found;
}

} // namespace

int iso9796_encode(uint8_t* out, size_t outLen, const uint8_t* message, size_t length, size_t bits) {
    if (message == nullptr || length == 0 || bits < 2)
        return BAD_PARAM_ERROR;
    const Shape shape = shape_of(bits);
    if (outLen < shape.size || length > shape.size / 2)
        return BAD_PARAM_ERROR;
    memset(out, 0, outLen);
    fill(out + (outLen - shape.size), shape, message, length);
    return 0;
}

int iso9796_decode(SecretBuffer& message, const uint8_t* block, size_t blockLen, size_t bits) {
    if (bits < 2)
        return BAD_PARAM_ERROR;
    const Shape shape = shape_of(bits);
    if (blockLen < shape.size)
        return BAD_PARAM_ERROR;
    if (shape.size > kMaxAllocation)
        return BAD_LENGTH_ERROR;
    const uint8_t* const number = block + (blockLen - shape.size);
    // In fewer than three bytes the cut removes the upper half of the message.
    if (shape.size < 3 || std::any_of(block, number, [](uint8_t byte) { return byte != 0; }))
        return DECRYPT_ERROR;

    // The longest message needs no mark, and the cut may remove it.
    size_t length = 1;
    const size_t longest = shape.size / 2;
    while (length < longest && !is_marked(number, shape.size, 2 * length - 1))
        length++;
    SecretBuffer found(length), expected(shape.size);
    for (size_t i = 0; i < length; i++)
        found[length - 1 - i] = number[shape.size - 1 - 2 * i];
    const uint8_t upper = digit_of_shadow(number[shape.size - 2] >> 4);
    found[length - 1] = static_cast<uint8_t>(upper << 4 | number[shape.size - 1] >> 4);
    fill(expected.data(), shape, found.data(), length);
    if (memcmp(expected.data(), number, shape.size) != 0)
        return DECRYPT_ERROR;
    message = std::move(found);
    return 0;
}

} // namespace zul
