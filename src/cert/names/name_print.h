#pragma once
#include "cert/fields/general_name.h"
#include "frame/text_buffer.h"

// Names of certificates as text for people. No value can look like something else: what would break a line,
// hide or turn text round is written as \xNN for each byte of its UTF-8, as are bytes that encode no
// character, and "\" as "\\".
namespace zul {

// put_string writes the characters of a string type; "#" and the encoding in hex for another type.
void put_string(TextBuffer& out, const DerElement& string);
// put_ascii_text writes the content of an IA5String or the like.
void put_ascii_text(TextBuffer& out, DerView content);

// NameReader steps over the attributes of a Name.
struct NameAttribute {
    DerView type;
    DerElement value;
    bool beginsRdn = false; // false: it belongs to the RelativeDistinguishedName of the attribute before it
};
class NameReader {
  public:
    // name: a whole Name; relative: the content of one RelativeDistinguishedName.
    static NameReader of_name(DerView name);
    static NameReader of_relative(DerView relative);
    // next gives false at the end and where the name is malformed; is_good tells which.
    [[nodiscard]] bool next(NameAttribute& attribute);
    bool is_good() const { return isGood_; }

  private:
    NameReader(DerView rdns, DerView attributes) : rdns_(rdns), attributes_(attributes) {}
    bool fail() {
        isGood_ = false;
        return false;
    }
    DerReader rdns_, attributes_;
    bool isGood_ = true;
};

// put_name writes a Name in the order of its encoding: "C=AU, O=Example, CN=Alice". Types are short keywords,
// or dotted object identifiers; attributes of one RelativeDistinguishedName are joined by "+". In values the
// characters ,;+"<> and a "#" or blank at the start, a blank at the end, stand behind "\" (RFC 4514, 2.4). A
// malformed Name is "#" and its encoding in hex: the result is false.
bool put_name(TextBuffer& out, DerView name);
bool put_relative_name(TextBuffer& out, DerView relative);

// put_ip_address writes 4 bytes in decimal or 16 as RFC 5952 has them; others as "#" and hex.
void put_ip_address(TextBuffer& out, DerView address);
// put_ip_range writes an address and a mask of the same length as "10.0.0.0/8", or with the whole mask.
void put_ip_range(TextBuffer& out, DerView range);

// general_name_keyword is the field's name: "dNSName".
std::string_view general_name_keyword(GeneralNameType type);
// put_general_name writes the value alone. Of an otherName: its type, ":" and the text.
void put_general_name(TextBuffer& out, const GeneralNameView& name);

} // namespace zul
