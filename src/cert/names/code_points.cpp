// RFC 3629 (UTF-8), RFC 2781 (surrogate pairs).
#include "cert/names/code_points.h"

namespace zul {

namespace {

constexpr uint8_t kNumericString = 0x12;
constexpr uint32_t kLastPoint = 0x10FFFF;

bool is_surrogate(uint32_t point) {
    return point >= 0xD800 && point <= 0xDFFF;
}

} // namespace

CodePoints::CodePoints(const DerElement& string) : at_(string.content.begin()), end_(string.content.end()) {
    switch (string.identifier) {
    case kDerUtf8String:
        form_ = Form::utf8;
        break;
    case kDerPrintableString:
    case kDerIa5String:
    case kDerVisibleString:
    case kNumericString:
        form_ = Form::ascii;
        break;
    case kDerTeletexString:
        form_ = Form::latin1;
        break;
    case kDerBmpString:
        form_ = Form::bmp;
        break;
    case kDerUniversalString:
        form_ = Form::universal;
        break;
    default:
        break;
    }
}

bool CodePoints::take_utf8(uint32_t& point) {
    const uint8_t lead = *at_;
    const size_t more = lead < 0xC2 ? 0 : lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : lead < 0xF5 ? 3 : 0;
    if (more == 0 || static_cast<size_t>(end_ - at_) <= more)
        return fail();
    point = lead & (0x3FU >> more);
    for (size_t i = 1; i <= more; i++) {
        if ((at_[i] & 0xC0) != 0x80)
            return fail();
        point = point << 6 | (at_[i] & 0x3FU);
    }
    constexpr uint32_t kLeast[] = {0, 0x80, 0x800, 0x10000};
    if (point < kLeast[more] || point > kLastPoint || is_surrogate(point))
        return fail();
    at_ += more + 1;
    return true;
}

bool CodePoints::take_bmp(uint32_t& point) {
    const auto unit = [this] { return static_cast<uint32_t>(at_[0] << 8 | at_[1]); };
    if (end_ - at_ < 2)
        return fail();
    point = unit();
    at_ += 2;
    if (!is_surrogate(point))
        return true;
    if (point >= 0xDC00 || end_ - at_ < 2)
        return fail();
    const uint32_t low = unit();
    if (low < 0xDC00 || low > 0xDFFF)
        return fail();
    at_ += 2;
    point = 0x10000 + ((point - 0xD800) << 10) + (low - 0xDC00);
    return true;
}

bool CodePoints::next(uint32_t& point) {
    if (at_ == end_ || !isGood_)
        return false;
    switch (form_) {
    case Form::ascii:
        point = *at_++;
        return point < 0x80 || fail();
    case Form::latin1:
        point = *at_++;
        return true;
    case Form::utf8:
        if (*at_ >= 0x80)
            return take_utf8(point);
        point = *at_++;
        return true;
    case Form::bmp:
        return take_bmp(point);
    case Form::universal:
        if (end_ - at_ < 4)
            return fail();
        point =
            static_cast<uint32_t>(at_[0]) << 24 | static_cast<uint32_t>(at_[1] << 16 | at_[2] << 8 | at_[3]);
        at_ += 4;
        return (point <= kLastPoint && !is_surrogate(point)) || fail();
    case Form::none:
        break;
    }
    return fail();
}

bool code_points_are_valid(const DerElement& string) {
    CodePoints points(string);
    uint32_t point;
    while (points.next(point)) {
    }
    return points.is_string() && points.is_good();
}

} // namespace zul
