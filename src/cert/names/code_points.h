#pragma once
#include "asn1/der_reader.h"

namespace zul {

// CodePoints steps over the characters of a string (X.680, 41): UTF8String, PrintableString, IA5String,
// NumericString, VisibleString, TeletexString as Latin-1 (what writers put there), BMPString with surrogate
// pairs, and UniversalString.
class CodePoints {
  public:
    explicit CodePoints(const DerElement& string);

    bool is_string() const { return form_ != Form::none; } // of one of these types
    // next gives false at the end and at what the type does not allow, which is_good tells apart.
    [[nodiscard]] bool next(uint32_t& point);
    bool is_good() const { return isGood_; }

  private:
    enum class Form : uint8_t { none, ascii, latin1, utf8, bmp, universal };

    [[nodiscard]] bool take_utf8(uint32_t& point);
    [[nodiscard]] bool take_bmp(uint32_t& point);
    bool fail() {
        isGood_ = false;
        return false;
    }

    Form form_ = Form::none;
    bool isGood_ = true;
    const uint8_t *at_, *end_;
};

// code_points_are_valid tells whether all of a string can be read.
[[nodiscard]] bool code_points_are_valid(const DerElement& string);

} // namespace zul
