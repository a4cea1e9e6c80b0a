#pragma once
#include <cstddef>
#include <cstdint>

namespace zul {

// What a byte sequence is as UTF-8.
enum class Utf8Class : int {
    invalid = 0,
    ascii = 1,  // every byte below 0x80; also the empty sequence
    latin1 = 2, // some characters from U+0080 to U+00FF, none above
    wide = 3,   // some character above U+00FF
};

// utf8_classify accepts forms of up to six bytes. It refuses overlong forms, U+FFFE and U+FFFF, the first and
// last points of the surrogate blocks (and no other surrogate), and a sequence cut off by the end.
Utf8Class utf8_classify(const uint8_t* data, size_t len);

// The result of a conversion: the bytes that the whole result has and those stored, which are fewer when the
// room was too small; the output then ends with a whole character.
struct Conversion {
    size_t length = 0;
    size_t stored = 0;
};

// utf8_from_latin1 stores at most room bytes in out, which may be null if room is 0. No NUL is added.
Conversion utf8_from_latin1(uint8_t* out, size_t room, const uint8_t* in, size_t len);

// latin1_from_utf8 does likewise in the other direction. It looks at the whole input whatever the room.
// 0, INVALID_DATA_ERROR (not UTF-8) or OUT_OF_RANGE_ERROR (a character above U+00FF, or a byte that begins
// none); after an error the content of out is of no use.
[[nodiscard]] int latin1_from_utf8(uint8_t* out, size_t room, const uint8_t* in, size_t len,
                                   Conversion* result);

} // namespace zul
