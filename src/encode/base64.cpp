// The standard alphabet of RFC 4648, clause 4.
#include "encode/base64.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "encode/encode_kernels.h"

namespace zul {
namespace {

constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// The two characters of each twelve bits.
struct CharacterPairs {
    char pair[4096][2];
};

constexpr CharacterPairs make_pairs() {
    CharacterPairs pairs{};
    for (unsigned i = 0; i < 4096; i++) {
        pairs.pair[i][0] = kAlphabet[i >> 6];
        pairs.pair[i][1] = kAlphabet[i & 63];
    }
    return pairs;
}

constexpr CharacterPairs kPairs = make_pairs();

// The value of each character: 0 to 63, kPad, or kNotBase64. The values of several characters or-ed together
// are below 64 only if all of them belong to the alphabet.
constexpr uint8_t kPad = 64;
constexpr uint8_t kNotBase64 = 128;

constexpr std::array<uint8_t, 256> make_values() {
    std::array<uint8_t, 256> values{};
    values.fill(kNotBase64);
    for (uint8_t i = 0; i < 64; i++)
        values[static_cast<uint8_t>(kAlphabet[i])] = i;
    values['='] = kPad;
    return values;
}

constexpr std::array<uint8_t, 256> kValues = make_values();

unsigned char_value(char c) {
    return kValues[static_cast<uint8_t>(c)];
}

void encode_group(char* out, const uint8_t* in) {
    unsigned bits = static_cast<unsigned>(in[0]) << 16 | static_cast<unsigned>(in[1]) << 8 | in[2];
    memcpy(out, kPairs.pair[bits >> 12], 2);
    memcpy(out + 2, kPairs.pair[bits & 0xFFF], 2);
}

void decode_group(uint8_t* out, unsigned bits) {
    out[0] = static_cast<uint8_t>(bits >> 16);
    out[1] = static_cast<uint8_t>(bits >> 8);
    out[2] = static_cast<uint8_t>(bits);
}

} // namespace

size_t b64_encode(char* out, size_t outSize, const uint8_t* data, size_t len) {
    if (outSize == 0)
        return 0;
    size_t room = (outSize - 1) / 4; // in groups
    size_t whole = std::min(len / 3, room);
    size_t i = has_vector_encoding() ? b64_encode_avx2(out, data, 3 * whole) / 3 : 0;
    for (; i < whole; i++)
        encode_group(out + 4 * i, data + 3 * i);
    size_t written = 4 * whole;
    size_t rest = len - 3 * whole;
    if ((rest == 1 || rest == 2) && whole < room) {
        const uint8_t last[3] = {data[3 * whole], rest == 2 ? data[3 * whole + 1] : uint8_t{0}, 0};
        encode_group(out + written, last);
        out[written + 3] = '=';
        if (rest == 1)
            out[written + 2] = '=';
        written += 4;
    }
    out[written] = '\0';
    return written;
}

size_t b64_decode(uint8_t* out, size_t outMax, const char* text, size_t textLen) {
    const bool hasVectors = has_vector_encoding();
    size_t written = 0, next = 0;
    unsigned bits = 0, count = 0; // the values of the group begun
    bool isLineStart = hasVectors;
    while (next < textLen) {
        if (isLineStart && count == 0) {
            const size_t room = (outMax - written) / 3 * 4;
            const size_t decoded =
                b64_decode_avx2(out + written, text + next, std::min(textLen - next, room));
            written += decoded / 4 * 3;
            next += decoded;
        }
        isLineStart = false;
        // Whole groups without a break between them.
        while (count == 0 && textLen - next >= 4 && outMax - written >= 3) {
            unsigned a = char_value(text[next]), b = char_value(text[next + 1]);
            unsigned c = char_value(text[next + 2]), d = char_value(text[next + 3]);
            if ((a | b | c | d) > 63)
                break;
            decode_group(out + written, a << 18 | b << 12 | c << 6 | d);
            written += 3;
            next += 4;
        }
        if (next == textLen || text[next] == '\0')
            break;
        const char c = text[next++];
        unsigned value = char_value(c);
        if (value == kPad)
            break;
        if (value == kNotBase64) {
            isLineStart = hasVectors && c == '\n';
            continue;
        }
        bits = bits << 6 | value;
        if (++count < 4)
            continue;
        if (outMax - written < 3)
            return written;
        decode_group(out + written, bits);
        written += 3;
        bits = count = 0;
    }
    if (count == 2 && outMax - written >= 1) {
        out[written++] = static_cast<uint8_t>(bits >> 4);
    } else if (count == 3 && outMax - written >= 2) {
        out[written++] = static_cast<uint8_t>(bits >> 10);
        out[written++] = static_cast<uint8_t>(bits >> 2);
    }
    return written;
}

SecretBuffer b64_text(const uint8_t* data, size_t len) {
    const size_t chars = b64_encoded_length(len);
    SecretBuffer text(chars + 1);
    b64_encode(text.text(), chars + 1, data, len);
    text.shrink(chars);
    return text;
}

size_t b64_decode(uint8_t* out, size_t outMax, const char* text) {
    return b64_decode(out, outMax, text, strlen(text));
}

size_t b64_decoded_length(const char* text, size_t textLen) {
    for (const char end : {'\0', '='})
        if (const void* found = textLen == 0 ? nullptr : memchr(text, end, textLen))
            textLen = static_cast<size_t>(static_cast<const char*>(found) - text);
    size_t values = 0;
    for (size_t i = has_vector_encoding() ? b64_count_avx2(&values, text, textLen) : 0; i < textLen; i++) {
        values += char_value(text[i]) < 64;
        // The compiler's own vectors would spill the text, which may be a key, to the stack.
        __asm__("" : "+r"(values));
    }
    // Two values left over are one byte, three are two, a lone one is none.
    size_t rest = values % 4;
    return values / 4 * 3 + (rest > 1 ? rest - 1 : 0);
}

size_t b64_decoded_length(const char* text) {
    return b64_decoded_length(text, strlen(text));
}

bool b64_decode_canonical(uint8_t* out, size_t* written, std::string_view text, bool padded) {
    *written = 0;
    if (padded) {
        if (text.size() % 4 != 0)
            return false;
        for (int i = 0; i < 2 && !text.empty() && text.back() == '='; i++)
            text.remove_suffix(1);
    }
    const size_t rest = text.size() % 4;
    unsigned all = 0;
    for (size_t i = 0; i + rest < text.size(); i += 4) {
        const unsigned a = char_value(text[i]), b = char_value(text[i + 1]);
        const unsigned c = char_value(text[i + 2]), d = char_value(text[i + 3]);
        all |= a | b | c | d;
        decode_group(out + *written, a << 18 | b << 12 | c << 6 | d);
        *written += 3;
    }
    if (rest != 0) {
        unsigned bits = 0;
        for (size_t i = text.size() - rest; i < text.size(); i++) {
            all |= char_value(text[i]);
            bits = bits << 6 | char_value(text[i]);
        }
        const unsigned unused = rest == 2 ? 0xF : 0x3;
        if (rest == 1 || (bits & unused) != 0)
            return false;
        decode_group(out + *written, bits << 6 * (4 - rest));
        *written += rest - 1;
    }
    return all < kPad;
}

bool b64_is_char(char c) {
    return char_value(c) <= kPad;
}

size_t b64_filter(char* out, const char* text, size_t len) {
    size_t kept = 0;
    for (size_t i = 0; i < len && text[i] != '\0'; i++) {
        if (!b64_is_char(text[i]))
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
