#include "frame/text_buffer.h"

#include <algorithm>
#include <climits>

#include "frame/err.h"
#include "zulcore.h"

namespace zul {

// whole_size drops a character of UTF-8 whose last bytes are missing at the end of a text.
static size_t whole_size(std::string_view text) {
    size_t lead = text.size();
    while (lead > 0 && (static_cast<unsigned char>(text[lead - 1]) & 0xC0) == 0x80)
        lead--;
    if (lead == 0)
        return text.size();
    const auto first = static_cast<unsigned char>(text[lead - 1]);
    const size_t needed = first < 0xC0 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    return text.size() - (lead - 1) < needed ? lead - 1 : text.size();
}

void TextBuffer::put_beyond(std::string_view text) {
    if (grows_) {
        constexpr size_t kFirst = 256;
        const size_t wanted = std::max({kFirst, size_ + text.size(), std::min(2 * room_, kMaxAllocation)});
        data_ = static_cast<char*>(egrow(data_, wanted, room_));
        room_ = wanted;
        append(text);
        return;
    }
    const size_t rest = text.size() - (room_ - stored());
    text.remove_suffix(rest);
    if (!text.empty())
        append(text);
    size_ += rest;
}

void TextBuffer::put_number(int64_t number) {
    char digits[20];
    size_t at = sizeof digits;
    uint64_t rest = number < 0 ? 0 - static_cast<uint64_t>(number) : static_cast<uint64_t>(number);
    do {
        digits[--at] = static_cast<char>('0' + rest % 10);
        rest /= 10;
    } while (rest != 0);
    if (number < 0)
        put('-');
    put({digits + at, sizeof digits - at});
}

void TextBuffer::put_hex(const uint8_t* bytes, size_t count) {
    constexpr char kDigits[] = "0123456789abcdef";
    char text[64];
    while (count > 0) {
        const size_t part = std::min(count, sizeof text / 2);
        for (size_t i = 0; i < part; i++) {
            text[2 * i] = kDigits[bytes[i] >> 4];
            text[2 * i + 1] = kDigits[bytes[i] & 15];
        }
        put({text, 2 * part});
        bytes += part;
        count -= part;
    }
}

void TextBuffer::pad(size_t count) {
    constexpr std::string_view kBlanks = "                                ";
    for (; count > kBlanks.size(); count -= kBlanks.size())
        put(kBlanks);
    put({kBlanks.data(), count});
}

int TextBuffer::result() {
    if (size_ > INT_MAX)
        return -err_fail(OUT_OF_RANGE_ERROR, "The text is longer than 2147483647 characters");
    if (room_ == 0)
        return static_cast<int>(size_);
    const size_t end = size_ > room_ ? whole_size(text()) : size_;
    data_[end] = '\0';
    return static_cast<int>(end);
}

} // namespace zul
