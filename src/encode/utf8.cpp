// UTF-8 after RFC 2279: forms of up to six bytes count as valid.
#include "encode/utf8.h"

#include <algorithm>
#include <cstring>

#include "zulcore.h"

namespace zul {
namespace {

bool is_continuation(uint8_t byte) {
    return (byte & 0xC0) == 0x80;
}

// ascii_run counts the bytes below 0x80 at the start of data.
size_t ascii_run(const uint8_t* data, size_t len) {
    size_t i = 0;
    for (; len - i >= 8; i += 8) {
        uint64_t eight;
        memcpy(&eight, data + i, 8);
        if ((eight & 0x8080808080808080) != 0)
            break;
    }
    while (i < len && data[i] < 0x80)
        i++;
    return i;
}

// sequence_length gives the bytes announced by a lead byte, 0 if the byte begins no character.
size_t sequence_length(uint8_t lead) {
    if (lead < 0xC2 || lead > 0xFD) // C0 and C1 would begin overlong forms
        return 0;
    return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF8 ? 4 : lead < 0xFC ? 5 : 6;
}

// is_overlong tells whether a sequence of three bytes or more has a shorter form.
bool is_overlong(uint8_t lead, uint8_t second) {
    return (lead == 0xE0 && second < 0xA0) || (lead == 0xF0 && second < 0x90) ||
           (lead == 0xF8 && second < 0x88) || (lead == 0xFC && second < 0x84);
}

// is_refused_point picks the three-byte sequences that are refused. Of the surrogates these are the
// first and last points of their blocks, deliberately no more: the others pass.
bool is_refused_point(const uint8_t* sequence) {
    static constexpr uint8_t kRefused[][3] = {
        {0xEF, 0xBF, 0xBE}, {0xEF, 0xBF, 0xBF},                     // U+FFFE, U+FFFF
        {0xED, 0xA0, 0x80}, {0xED, 0xAD, 0xBF}, {0xED, 0xAE, 0x80}, // U+D800, U+DB7F, U+DB80
        {0xED, 0xAF, 0xBF}, {0xED, 0xB0, 0x80}, {0xED, 0xBE, 0x80}, // U+DBFF, U+DC00, U+DF80
        {0xED, 0xBF, 0xBF},                                         // U+DFFF
    };
    for (const uint8_t* refused : kRefused) {
        if (memcmp(sequence, refused, 3) == 0)
            return true;
    }
    return false;
}

} // namespace

Utf8Class utf8_classify(const uint8_t* data, size_t len) {
    Utf8Class found = Utf8Class::ascii;
    for (size_t i = 0;;) {
        i += ascii_run(data + i, len - i);
        if (i == len)
            return found;
        const uint8_t* sequence = data + i;
        size_t length = sequence_length(sequence[0]);
        if (length == 0 || length > len - i)
            return Utf8Class::invalid;
        if (!std::all_of(sequence + 1, sequence + length, is_continuation))
            return Utf8Class::invalid;
        if (is_overlong(sequence[0], sequence[1]) || (length == 3 && is_refused_point(sequence)))
            return Utf8Class::invalid;
        if (sequence[0] > 0xC3)
            found = Utf8Class::wide;
        else if (found != Utf8Class::wide)
            found = Utf8Class::latin1;
        i += length;
    }
}

Conversion utf8_from_latin1(uint8_t* out, size_t room, const uint8_t* in, size_t len) {
    // The length goes on past the first character that does not fit, so nothing after it is stored either.
    Conversion result;
    for (size_t i = 0; i < len; i++) {
        size_t size = in[i] < 0x80 ? 1 : 2;
        if (result.length <= room && room - result.length >= size) {
            uint8_t* to = out + result.length;
            if (size == 1) {
                to[0] = in[i];
            } else {
                to[0] = static_cast<uint8_t>(0xC0 | in[i] >> 6);
                to[1] = static_cast<uint8_t>(0x80 | (in[i] & 0x3F));
            }
            result.stored += size;
        }
        result.length += size;
    }
    return result;
}

int latin1_from_utf8(uint8_t* out, size_t room, const uint8_t* in, size_t len, Conversion* result) {
    *result = {};
    for (size_t i = 0; i < len; i++) {
        uint8_t character = in[i];
        if (character >= 0x80) {
            if (character >= 0xFE)
                return INVALID_DATA_ERROR;
            if (character < 0xC0 || character > 0xC3)
                return OUT_OF_RANGE_ERROR;
            if (character < 0xC2 || i + 1 == len || !is_continuation(in[i + 1]))
                return INVALID_DATA_ERROR;
            i++;
            character = static_cast<uint8_t>((character & 0x1F) << 6 | (in[i] & 0x3F));
        }
        if (result->length < room) {
            out[result->length] = character;
            result->stored++;
        }
        result->length++;
    }
    return 0;
}

} // namespace zul
