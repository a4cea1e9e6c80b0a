#include "cert/names/punycode.h"

#include <algorithm>

#include "encode/utf8_scalar.h"
#include "frame/slice.h"

namespace zul {
namespace {

// The parameters of RFC 3492, 5.
constexpr uint32_t kBase = 36, kLeast = 1, kMost = 26, kSkew = 38, kDamp = 700, kFirstBias = 72;
constexpr uint32_t kFirstNumber = 0x80, kLastCharacter = 0x10FFFF;

uint32_t adapted(uint32_t delta, size_t points, bool isFirst) {
    delta /= isFirst ? kDamp : 2;
    delta += delta / static_cast<uint32_t>(points);
    uint32_t k = 0;
    for (; delta > (kBase - kLeast) * kMost / 2; k += kBase)
        delta /= kBase - kLeast;
    return k + (kBase - kLeast + 1) * delta / (delta + kSkew);
}

uint32_t threshold(uint32_t k, uint32_t bias) {
    return k <= bias ? kLeast : std::min(k - bias, kMost);
}

char digit(uint32_t value) {
    return static_cast<char>(value < 26 ? 'a' + value : '0' + (value - 26));
}

uint32_t digit_value(char c) {
    if (c >= '0' && c <= '9')
        return static_cast<uint32_t>(c - '0') + 26;
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'z' ? static_cast<uint32_t>(lower - 'a') : kBase;
}

class FormWriter {
  public:
    explicit FormWriter(char* out) : out_(out) {}
    bool put(char c) {
        if (size_ == kMaxLabel)
            return false;
        out_[size_++] = c;
        return true;
    }
    bool put_number(uint32_t q, uint32_t bias) {
        for (uint32_t k = kBase;; k += kBase) {
            const uint32_t t = threshold(k, bias);
            if (q < t)
                return put(digit(q));
            if (!put(digit(t + (q - t) % (kBase - t))))
                return false;
            q = (q - t) / (kBase - t);
        }
    }
    size_t size() const { return size_; }

  private:
    char* out_;
    size_t size_ = 0;
};

} // namespace

size_t punycode_encode(char out[kMaxLabel], std::string_view label) {
    char32_t characters[kMaxLabel]; // the form has one character at least for each
    size_t count = 0;
    while (!label.empty())
        if (count == kMaxLabel || !utf8_next(label, characters[count++]))
            return 0;
    FormWriter form(out);
    for (size_t i = 0; i < count; i++)
        if (characters[i] < kFirstNumber && !form.put(static_cast<char>(characters[i])))
            return 0;
    size_t done = form.size();
    const size_t basic = done;
    if (basic > 0 && !form.put('-'))
        return 0;
    // With at most 63 characters no sum here reaches 2^32.
    uint32_t next = kFirstNumber, delta = 0, bias = kFirstBias;
    while (done < count) {
        uint32_t least = kLastCharacter;
        for (size_t i = 0; i < count; i++)
            if (characters[i] >= next)
                least = std::min<uint32_t>(least, characters[i]);
        delta += (least - next) * static_cast<uint32_t>(done + 1);
        next = least;
        for (size_t i = 0; i < count; i++) {
            delta += characters[i] < next;
            if (characters[i] != next)
                continue;
            if (!form.put_number(delta, bias))
                return 0;
            bias = adapted(delta, done + 1, done == basic);
            delta = 0;
            done++;
        }
        delta++;
        next++;
    }
    return form.size();
}

bool punycode_decode(SecretBuffer& label, std::string_view form) {
    char32_t characters[kMaxLabel];
    size_t count = 0;
    if (form.size() > kMaxLabel)
        return false;
    const size_t delimiter = form.rfind('-');
    if (delimiter != std::string_view::npos) {
        for (; count < delimiter; count++) {
            characters[count] = static_cast<unsigned char>(form[count]);
            if (characters[count] >= kFirstNumber)
                return false;
        }
        form.remove_prefix(delimiter + 1);
    }
    uint64_t character = kFirstNumber, place = 0;
    uint32_t bias = kFirstBias;
    for (bool isFirst = true; !form.empty(); isFirst = false) {
        const uint64_t before = place;
        uint64_t weight = 1;
        for (uint32_t k = kBase;; k += kBase) {
            const uint32_t value = form.empty() ? kBase : digit_value(form[0]);
            if (value == kBase || weight > kLastCharacter * kMaxLabel)
                return false;
            form.remove_prefix(1);
            place += value * weight;
            const uint32_t t = threshold(k, bias);
            if (value < t)
                break;
            weight *= kBase - t;
        }
        const uint64_t points = count + 1;
        if (place > uint64_t{kLastCharacter} * kMaxLabel)
            return false;
        bias = adapted(static_cast<uint32_t>(place - before), points, isFirst);
        character += place / points;
        place %= points;
        if (count == kMaxLabel || character > kLastCharacter || (character >= 0xD800 && character < 0xE000))
            return false;
        std::copy_backward(characters + place, characters + count, characters + count + 1);
        characters[place++] = static_cast<char32_t>(character);
        count++;
    }
    label = SecretBuffer();
    for (size_t i = 0; i < count; i++) {
        char bytes[kMaxUtf8];
        label.append(bytes, utf8_put(bytes, characters[i]));
    }
    return true;
}

} // namespace zul
