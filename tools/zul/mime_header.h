#pragma once
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Header fields of messages and of their parts (RFC 5322, 2045, 2231). What readers are known to take in
// different ways is refused: a signature has to mean the same to all of them.
namespace tool {

struct MimeField {
    std::string name;           // lower case
    std::string_view raw, body; // the field with its line ends; what is behind the colon

    std::string value() const; // in one line
};

// MimeHeader holds views of the text that it was read from.
class MimeHeader {
  public:
    // read cuts a header and the empty line behind it off a text; name is for messages.
    static MimeHeader read(std::string_view& text, const std::string& name);

    const std::vector<MimeField>& fields() const { return fields_; }
    bool has(std::string_view field) const { return find(field) != nullptr; }
    // value gives a field that may stand once, or an empty text. Refused if there are several.
    std::string value(std::string_view field) const;

  private:
    const MimeField* find(std::string_view field) const;

    std::string name_;
    std::vector<MimeField> fields_;
};

// MimeValue is a field such as Content-Type: a word, or two with a slash, and parameters.
class MimeValue {
  public:
    MimeValue(const std::string& value, const std::string& name);

    const std::string& word() const { return word_; } // lower case
    std::string group() const { return word_.substr(0, word_.find('/')); }
    // parameter gives an empty text if there is none. Refused if it stands twice, in whatever form.
    std::string parameter(std::string_view parameter) const;

  private:
    std::string name_, word_;
    std::vector<std::pair<std::string, std::string>> parameters_;
};

// mailboxes gives the addresses of a field such as From, without names and comments. Refused for groups, for
// what is no address and for more than 100; name is for messages.
std::vector<std::string> mailboxes(const std::string& value, const std::string& name);

} // namespace tool
