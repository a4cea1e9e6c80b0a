#include "seal/bech32.h"

#include "frame/constant_time.h"
#include "frame/slice.h"

namespace zul {
namespace {

constexpr std::string_view kAlphabet = "qpzry9x8gf2tvdw0s3jn54khce6mua7l";
constexpr uint8_t kNoValue = 0xFF;
constexpr char kSeparator = '1';
constexpr size_t kKeyValues = (8 * kBech32Key + 4) / 5;

uint32_t mask_between(uint8_t c, char first, char last) {
    return ~mask_less(c, static_cast<uint8_t>(first)) & mask_less(c, static_cast<uint8_t>(last) + 1U);
}

uint8_t lower_case(uint8_t c) {
    return static_cast<uint8_t>(c | (0x20 & mask_between(c, 'A', 'Z')));
}

uint8_t value_of(uint8_t c) {
    uint32_t value = 0, found = 0;
    for (uint32_t i = 0; i < kAlphabet.size(); i++) {
        const uint32_t same = mask_equal(c, static_cast<uint8_t>(kAlphabet[i]));
        value |= i & same;
        found |= same;
    }
    return static_cast<uint8_t>(value | (~found & kNoValue));
}

uint8_t character_of(uint8_t value) {
    uint32_t c = 0;
    for (uint32_t i = 0; i < kAlphabet.size(); i++)
        c |= static_cast<uint8_t>(kAlphabet[i]) & mask_equal(value, i);
    return static_cast<uint8_t>(c);
}

// Checksum is the remainder of the values absorbed.
class Checksum {
  public:
    explicit Checksum(std::string_view prefix) {
        for (const char c : prefix)
            absorb(lower_case(static_cast<uint8_t>(c)) >> 5);
        absorb(0);
        for (const char c : prefix)
            absorb(lower_case(static_cast<uint8_t>(c)) & 31);
    }
    ~Checksum() { wipe_bytes(&sum_, sizeof sum_); }

    void absorb(uint32_t value) {
        constexpr uint32_t kGenerator[] = {0x3B6A57B2, 0x26508E6D, 0x1EA119FA, 0x3D4233DD, 0x2A1462B3};
        const uint32_t top = sum_ >> 25;
        sum_ = (sum_ & 0x1FFFFFF) << 5 ^ value;
        for (unsigned i = 0; i < 5; i++)
            sum_ ^= kGenerator[i] & opaque(0U - (top >> i & 1));
    }
    uint32_t sum() const { return sum_; }

  private:
    uint32_t sum_ = 1;
};

} // namespace

bool bech32_split(Bech32Parts& parts, std::string_view text) {
    if (text.size() > kBech32Longest)
        return false;
    uint32_t upper = 0, lower = 0;
    for (const char c : text) {
        const auto byte = static_cast<uint8_t>(c);
        if (byte < 33 || byte > 126)
            return false;
        upper |= mask_between(byte, 'A', 'Z');
        lower |= mask_between(byte, 'a', 'z');
    }
    const size_t separator = text.rfind(kSeparator);
    if ((upper & lower) != 0 || separator == 0 || separator == std::string_view::npos ||
        text.size() - separator - 1 < kBech32Checksum)
        return false;
    parts.prefixLength = separator;
    parts.count = text.size() - separator - 1;
    Checksum checksum(slice(text, 0, separator));
    uint8_t all = 0;
    for (size_t i = 0; i < parts.count; i++) {
        parts.values[i] = value_of(lower_case(static_cast<uint8_t>(text[separator + 1 + i])));
        all |= parts.values[i];
        checksum.absorb(parts.values[i]);
    }
    parts.count -= kBech32Checksum;
    return all < kAlphabet.size() && checksum.sum() == 1;
}

bool bech32_read(uint8_t* key, std::string_view prefix, std::string_view text) {
    Bech32Parts parts;
    if (!bech32_split(parts, text) || parts.prefixLength != prefix.size() || parts.count != kKeyValues)
        return false;
    for (size_t i = 0; i < prefix.size(); i++)
        if (lower_case(static_cast<uint8_t>(text[i])) != static_cast<uint8_t>(prefix[i]))
            return false;
    uint32_t bits = 0;
    size_t held = 0, written = 0;
    for (size_t i = 0; i < kKeyValues; i++) {
        bits = (bits << 5 | parts.values[i]) & 0xFFF;
        held += 5;
        if (held >= 8) {
            held -= 8;
            key[written++] = static_cast<uint8_t>(bits >> held);
        }
    }
    const uint32_t padding = bits & ((1U << held) - 1);
    wipe_bytes(&bits, sizeof bits);
    if (padding != 0)
        wipe_bytes(key, kBech32Key);
    return padding == 0;
}

void bech32_write(char* out, std::string_view prefix, const uint8_t* key, bool upperCase) {
    Secret<kKeyValues + kBech32Checksum> values;
    Checksum checksum(prefix);
    uint32_t bits = 0;
    size_t held = 0, read = 0;
    for (size_t i = 0; i < kKeyValues; i++) {
        if (held < 5) {
            bits = (bits << 8 | (read < kBech32Key ? key[read] : 0)) & 0xFFF;
            read++;
            held += 8;
        }
        held -= 5;
        values[i] = bits >> held & 31;
        checksum.absorb(values[i]);
    }
    wipe_bytes(&bits, sizeof bits);
    for (size_t i = 0; i < kBech32Checksum; i++)
        checksum.absorb(0);
    for (size_t i = 0; i < kBech32Checksum; i++)
        values[kKeyValues + i] = (checksum.sum() ^ 1) >> 5 * (kBech32Checksum - 1 - i) & 31;

    const auto put = [&](uint8_t c) {
        *out++ = static_cast<char>(c ^ (upperCase ? 0x20 & mask_between(c, 'a', 'z') : 0));
    };
    for (const char c : prefix)
        put(static_cast<uint8_t>(c));
    put(kSeparator);
    for (size_t i = 0; i < values.size(); i++)
        put(character_of(values[i]));
    *out = '\0';
}

} // namespace zul
