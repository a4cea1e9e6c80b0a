#include "cert/names/string_value.h"

#include "encode/utf8_scalar.h"

namespace zul {

namespace {

constexpr uint8_t kNumericString = 0x12, kGraphicString = 0x19, kGeneralString = 0x1B;

bool is_high_surrogate(char32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}
bool is_low_surrogate(char32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

char32_t two_bytes(const uint8_t* at) {
    return static_cast<char32_t>(at[0] << 8 | at[1]);
}

bool is_wide(uint8_t type) {
    return type == kDerBmpString || type == kDerUniversalString;
}

} // namespace

bool string_type_is_known(uint8_t type) {
    switch (type) {
    case kDerUtf8String:
    case kDerPrintableString:
    case kDerIa5String:
    case kDerVisibleString:
    case kDerTeletexString:
    case kDerBmpString:
    case kDerUniversalString:
    case kNumericString:
    case kGraphicString:
    case kGeneralString:
        return true;
    default:
        return false;
    }
}

// decode gives the bytes of the next character, 0 if none is encoded here.
size_t StringReader::decode(char32_t& character) const {
    const auto left = static_cast<size_t>(end_ - next_);
    switch (type_) {
    case kDerUtf8String: {
        std::string_view rest(reinterpret_cast<const char*>(next_), left < kMaxUtf8 ? left : kMaxUtf8);
        const size_t before = rest.size();
        return utf8_next(rest, character) ? before - rest.size() : 0;
    }
    case kDerBmpString: {
        if (left < 2)
            return 0;
        character = two_bytes(next_);
        if (!is_high_surrogate(character))
            return is_low_surrogate(character) ? 0 : 2;
        if (left < 4 || !is_low_surrogate(two_bytes(next_ + 2)))
            return 0;
        character = 0x10000 + ((character - 0xD800) << 10 | (two_bytes(next_ + 2) - 0xDC00));
        return 4;
    }
    case kDerUniversalString:
        if (left < 4)
            return 0;
        character = two_bytes(next_) << 16 | two_bytes(next_ + 2);
        return character > 0x10FFFF || is_high_surrogate(character) || is_low_surrogate(character) ? 0 : 4;
    default:
        character = *next_;
        return character < 0x80 || type_ == kDerTeletexString ? 1 : 0;
    }
}

char32_t StringReader::next(bool& isCharacter) {
    char32_t character = 0;
    isCharacter = false;
    if (refused_ == 0) {
        if (const size_t size = decode(character)) {
            isCharacter = true;
            next_ += size;
            return character;
        }
        // What is wrong in a string of wide units is a whole unit: its other bytes begin no character.
        const auto left = static_cast<size_t>(end_ - next_);
        const size_t unit = type_ == kDerBmpString ? 2 : type_ == kDerUniversalString ? 4 : 1;
        refused_ = static_cast<uint8_t>(unit < left ? unit : left);
    }
    refused_--;
    return *next_++;
}

std::string_view StringReader::ascii_run() {
    const uint8_t* start = next_;
    if (!is_wide(type_))
        while (next_ != end_ && *next_ < 0x80)
            next_++;
    return {reinterpret_cast<const char*>(start), static_cast<size_t>(next_ - start)};
}

bool string_is_valid(uint8_t type, DerView content) {
    if (!string_type_is_known(type))
        return false;
    bool isCharacter = true;
    for (StringReader reader(type, content); isCharacter && !reader.at_end();)
        reader.next(isCharacter);
    return isCharacter;
}

} // namespace zul
