#include "encode/hex.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "encode/encode_kernels.h"
#include "frame/wipe.h"

namespace zul {
namespace {

struct DigitPairs {
    char pair[256][2];
};

constexpr DigitPairs make_pairs(const char* digits) {
    DigitPairs pairs{};
    for (unsigned i = 0; i < 256; i++) {
        pairs.pair[i][0] = digits[i >> 4];
        pairs.pair[i][1] = digits[i & 15];
    }
    return pairs;
}

constexpr char kLowerDigits[] = "0123456789abcdef";
constexpr DigitPairs kUpper = make_pairs(kHexDigits);
constexpr DigitPairs kLower = make_pairs(kLowerDigits);

// The value of each character as a digit; kNotDigit has bits outside a digit's four, so that the values of
// two characters or-ed together tell whether both are digits.
constexpr uint8_t kNotDigit = 0x80;

constexpr std::array<uint8_t, 256> make_values() {
    std::array<uint8_t, 256> values{};
    for (unsigned c = 0; c < 256; c++) {
        if (c >= '0' && c <= '9')
            values[c] = static_cast<uint8_t>(c - '0');
        else if (c >= 'A' && c <= 'F')
            values[c] = static_cast<uint8_t>(c - 'A' + 10);
        else if (c >= 'a' && c <= 'f')
            values[c] = static_cast<uint8_t>(c - 'a' + 10);
        else
            values[c] = kNotDigit;
    }
    return values;
}

constexpr std::array<uint8_t, 256> kValues = make_values();

unsigned digit_value(char c) {
    return kValues[static_cast<uint8_t>(c)];
}

// skip_to_digit leaves text at the next digit or at the NUL and tells whether it passed the end of a line.
bool skip_to_digit(const char*& text) {
    bool isLineStart = false;
    for (; digit_value(*text) == kNotDigit && *text != '\0'; text++)
        isLineStart = *text == '\n';
    return isLineStart;
}

size_t encode(char* out, size_t outSize, const uint8_t* data, size_t len, const char* digits,
              const DigitPairs& pairs) {
    if (outSize == 0)
        return 0;
    size_t count = std::min(len, (outSize - 1) / 2);
    size_t i = has_vector_encoding() ? hex_encode_avx2(out, data, count, digits) : 0;
    for (; i < count; i++)
        memcpy(out + 2 * i, pairs.pair[data[i]], 2);
    out[2 * count] = '\0';
    return 2 * count;
}

} // namespace

size_t hex_encode(char* out, size_t outSize, const uint8_t* data, size_t len) {
    return encode(out, outSize, data, len, kHexDigits, kUpper);
}

size_t hex_encode_lower(char* out, size_t outSize, const uint8_t* data, size_t len) {
    return encode(out, outSize, data, len, kLowerDigits, kLower);
}

size_t hex_decode(uint8_t* out, size_t outMax, const char* text) {
    const char* const end = text + strlen(text);
    const bool hasVectors = has_vector_encoding();
    size_t written = 0;
    bool isLineStart = hasVectors;
    while (written < outMax) {
        if (isLineStart) {
            const size_t room = (outMax - written) * 2;
            const size_t digits =
                hex_decode_avx2(out + written, text, std::min(static_cast<size_t>(end - text), room));
            text += digits;
            written += digits / 2;
            isLineStart = false;
            continue;
        }
        // Two digits side by side are the usual case. Reading text[1] is safe: text[0] is not NUL.
        unsigned high = digit_value(text[0]), low;
        if (high != kNotDigit && (low = digit_value(text[1])) != kNotDigit) {
            out[written++] = static_cast<uint8_t>(high << 4 | low);
            text += 2;
            continue;
        }
        isLineStart = skip_to_digit(text) && hasVectors;
        if (isLineStart)
            continue;
        high = digit_value(*text);
        if (high == kNotDigit)
            return written;
        text++;
        skip_to_digit(text);
        low = digit_value(*text);
        if (low == kNotDigit)
            return written;
        text++;
        out[written++] = static_cast<uint8_t>(high << 4 | low);
    }
    return written;
}

size_t hex_decoded_length(const char* text) {
    size_t digits = 0;
    if (has_vector_encoding())
        text += hex_count_avx2(&digits, text, strlen(text));
    for (; *text != '\0'; text++)
        digits += digit_value(*text) != kNotDigit;
    return digits / 2;
}

bool hex_decode_strict(uint8_t* out, size_t* outLen, const char* text, size_t textLen) {
    *outLen = 0;
    if (textLen % 2 != 0)
        return false;
    // Every value is looked at before the verdict, so that the loop has no early way out to slow it.
    unsigned seen = 0;
    for (size_t i = has_vector_encoding() ? hex_decode_avx2(out, text, textLen) / 2 : 0; i < textLen / 2;
         i++) {
        unsigned high = digit_value(text[2 * i]), low = digit_value(text[2 * i + 1]);
        seen |= high | low;
        out[i] = static_cast<uint8_t>(high << 4 | low);
    }
    if ((seen & kNotDigit) != 0) {
        wipe_bytes(out, textLen / 2);
        return false;
    }
    *outLen = textLen / 2;
    return true;
}

size_t hex_filter(char* out, const char* text, size_t len) {
    size_t kept = 0;
    for (size_t i = 0; i < len && text[i] != '\0'; i++) {
        if (digit_value(text[i]) == kNotDigit)
            continue;
        if (out != nullptr)
            out[kept] = text[i];
        kept++;
    }
    if (out != nullptr)
        out[kept] = '\0';
    return kept;
}

} // namespace zul
