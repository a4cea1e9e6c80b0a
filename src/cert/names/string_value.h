#pragma once
#include "asn1/der_reader.h"

// Characters of the string types of names (X.680, 41; RFC 5280, 4.1.2.4).
namespace zul {

// string_type_is_known tells whether a universal type is one that StringReader reads: UTF8String,
// PrintableString, IA5String, NumericString, VisibleString, GeneralString and GraphicString as ASCII,
// TeletexString as Latin-1, BMPString as UTF-16, UniversalString.
bool string_type_is_known(uint8_t type);

// StringReader steps over the characters of a string's content, as code points of Unicode.
class StringReader {
  public:
    // type: one that is known.
    StringReader(uint8_t type, DerView content)
        : next_(content.data), end_(content.data + content.size), type_(type) {}

    bool at_end() const { return next_ == end_; }
    // next takes a character of a string that is not at its end; where none is encoded, one byte, with
    // isCharacter false.
    char32_t next(bool& isCharacter);
    // ascii_run takes the characters from here on that are each one byte of ASCII.
    std::string_view ascii_run();

  private:
    size_t decode(char32_t& character) const;

    const uint8_t *next_, *end_;
    uint8_t type_;
    uint8_t refused_ = 0; // bytes that are to be given as they are
};

// string_is_valid tells whether a content is all characters of its type.
[[nodiscard]] bool string_is_valid(uint8_t type, DerView content);

} // namespace zul
