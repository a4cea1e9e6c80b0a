#include "pfx/p12_password.h"

#include <algorithm>
#include <cstring>

#include "pbe/kdf.h"
#include "pfx/p12_text.h"

namespace zul {
namespace {

SecretBuffer with_nul(std::string_view text) {
    SecretBuffer copy(text.size() + 1);
    memcpy(copy.data(), text.data(), text.size());
    copy.shrink(text.size());
    return copy;
}

} // namespace

P12Password::P12Password(const char* text) {
    const std::string_view given(text == nullptr ? "" : text);
    const bool isAscii =
        std::all_of(given.begin(), given.end(), [](char c) { return static_cast<uint8_t>(c) < 0x80; });
    bytes_[0] = with_nul(given);
    wide_[0] = pkcs12_password(given.data(), given.size());
    if (given.empty())
        wideForms_ = 2; // the second is of no bytes
    if (isAscii)
        return;

    if (SecretBuffer characters; utf16_from_utf8(characters, given)) {
        constexpr uint8_t kNul[2] = {};
        characters.append(kNul, sizeof kNul);
        wide_[1] = std::move(wide_[0]);
        wide_[0] = std::move(characters);
        wideForms_ = 2;
    } else {
        SecretBuffer converted;
        append_latin1(converted, given);
        bytes_[1] = std::move(bytes_[0]);
        bytes_[0] = std::move(converted);
        byteForms_ = 2;
    }
}

bool P12Password::fits(const char* text) {
    return text == nullptr || strlen(text) <= kMaxAllocation / 8;
}

} // namespace zul
