#pragma once
#include <string_view>

#include "frame/wipe.h"

// Bech32 (BIP 173), in which age writes its keys. They may be secret: no branch and no address depends on a
// character after the prefix, but that the text is refused.
namespace zul {

constexpr size_t kBech32Longest = 90, kBech32Checksum = 6; // characters
constexpr size_t kBech32Key = 32;                          // bytes

// Bech32Parts are those of a text whose checksum is right: values of five bits, without the checksum.
struct Bech32Parts {
    size_t prefixLength = 0, count = 0;
    Secret<kBech32Longest> values;
};

// bech32_split takes a text apart, in upper case or in lower case: false for any other.
[[nodiscard]] bool bech32_split(Bech32Parts& parts, std::string_view text);

// bech32_read reads a key of 32 bytes behind a prefix, which is given in lower case: false if the text is
// anything else.
[[nodiscard]] bool bech32_read(uint8_t* key, std::string_view prefix, std::string_view text);

// bech32_key_length is the length of the text that bech32_write makes, without its NUL.
constexpr size_t bech32_key_length(std::string_view prefix) {
    return prefix.size() + 1 + (8 * kBech32Key + 4) / 5 + kBech32Checksum;
}
// bech32_write writes a key of 32 bytes behind a prefix in lower case, all in upper case if so wanted, and a
// NUL.
void bech32_write(char* out, std::string_view prefix, const uint8_t* key, bool upperCase);

} // namespace zul
