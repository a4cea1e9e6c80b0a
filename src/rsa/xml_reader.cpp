#include "rsa/xml_reader.h"

#include <cstdint>

#include "frame/slice.h"

namespace zul {

namespace {

bool is_space(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

bool starts_name(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == ':' ||
           static_cast<unsigned char>(c) >= 0x80;
}

bool continues_name(char c) {
    return starts_name(c) || (c >= '0' && c <= '9') || c == '-' || c == '.';
}

std::string_view without_prefix(std::string_view name) {
    return slice(name, name.rfind(':') + 1); // npos + 1 is 0
}

// The number of a character reference ("#65", "#x41"), or 0 for anything else.
uint32_t referred_number(std::string_view reference) {
    const bool isHex = slice(reference, 0, 2) == "#x";
    reference.remove_prefix(isHex ? 2 : 1);
    uint32_t number = 0;
    for (const char c : reference) {
        uint32_t digit = 16;
        if (c >= '0' && c <= '9')
            digit = static_cast<uint32_t>(c - '0');
        else if (isHex && c >= 'a' && c <= 'f')
            digit = static_cast<uint32_t>(c - 'a') + 10;
        else if (isHex && c >= 'A' && c <= 'F')
            digit = static_cast<uint32_t>(c - 'A') + 10;
        if (digit == 16)
            return 0;
        number = number * (isHex ? 16 : 10) + digit;
        if (number > 0x10FFFF)
            return 0;
    }
    return number;
}

size_t encode_utf8(char* out, uint32_t number) {
    if (number < 0x80) {
        out[0] = static_cast<char>(number);
        return 1;
    }
    const size_t size = number < 0x800 ? 2 : number < 0x10000 ? 3 : 4;
    for (size_t i = size; i-- > 1; number >>= 6)
        out[i] = static_cast<char>(0x80 | (number & 0x3F));
    out[0] = static_cast<char>((0xF00 >> size & 0xFF) | number);
    return size;
}

} // namespace

XmlReader::XmlReader(std::string_view document) : rest_(document) {
    take("\xEF\xBB\xBF"); // a byte order mark
}

XmlReader::Event XmlReader::next() {
    if (!isOver_)
        last_ = read();
    isOver_ = last_ == Event::finished || last_ == Event::malformed;
    return last_;
}

XmlReader::Event XmlReader::read() {
    if (isEmpty_) {
        isEmpty_ = false;
        close();
        return Event::end;
    }
    for (;;) {
        if (depth_ == 0) {
            skip_space();
            if (rest_.empty())
                return hadRoot_ ? Event::finished : Event::malformed;
            if (rest_[0] != '<')
                return Event::malformed;
        } else if (rest_.empty()) {
            return Event::malformed;
        }
        bool skipped = false;
        if (take("<!--"))
            skipped = skip_past("-->");
        else if (take("<?"))
            skipped = skip_past("?>");
        else
            return rest_[0] == '<' ? read_markup() : read_text();
        if (!skipped)
            return Event::malformed;
    }
}

XmlReader::Event XmlReader::read_markup() {
    if (take("</"))
        return read_end_tag();
    if (depth_ > 0 && take("<![CDATA["))
        return read_cdata() ? Event::text : Event::malformed;
    rest_.remove_prefix(1);
    return read_start_tag();
}

XmlReader::Event XmlReader::read_start_tag() {
    const std::string_view name = read_name();
    if (name.empty() || depth_ == kMaxDepth || (depth_ == 0 && hadRoot_))
        return Event::malformed;
    const std::string_view from = rest_;
    if (!skip_attributes())
        return Event::malformed;
    attributes_ = slice(from, 0, from.size() - rest_.size());
    isEmpty_ = take("/");
    if (!take(">"))
        return Event::malformed;
    hadRoot_ = true;
    open_[depth_++] = name;
    name_ = without_prefix(name);
    return Event::start;
}

XmlReader::Event XmlReader::read_end_tag() {
    const std::string_view name = read_name();
    skip_space();
    if (depth_ == 0 || name != open_[depth_ - 1] || !take(">"))
        return Event::malformed;
    close();
    return Event::end;
}

void XmlReader::close() {
    depth_--;
    name_ = without_prefix(open_[depth_]);
    attributes_ = {};
}

XmlReader::Event XmlReader::read_text() {
    if (rest_[0] == '&')
        return read_reference() ? Event::text : Event::malformed;
    text_ = slice(rest_, 0, rest_.find_first_of("<&"));
    rest_.remove_prefix(text_.size());
    return Event::text;
}

bool XmlReader::read_reference() {
    constexpr size_t kLongest = 12; // a character reference with leading zeros
    static constexpr struct {
        std::string_view name;
        char character;
    } kPredefined[] = {{"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}};

    const size_t end = slice(rest_, 0, kLongest).find(';');
    if (end == std::string_view::npos)
        return false;
    const std::string_view reference = slice(rest_, 1, end - 1);
    uint32_t number = 0;
    if (!reference.empty() && reference[0] == '#')
        number = referred_number(reference);
    for (const auto& entity : kPredefined)
        if (reference == entity.name)
            number = static_cast<uint8_t>(entity.character);
    if (number == 0)
        return false;
    text_ = {character_, encode_utf8(character_, number)};
    rest_.remove_prefix(end + 1);
    return true;
}

bool XmlReader::read_cdata() {
    const std::string_view from = rest_;
    if (!skip_past("]]>"))
        return false;
    text_ = slice(from, 0, from.size() - rest_.size() - 3);
    return true;
}

// Leaves the "/" or ">" that ends the tag; every attribute follows a blank.
bool XmlReader::skip_attributes() {
    while (skip_space() && !rest_.empty() && starts_name(rest_[0])) {
        read_name();
        skip_space();
        if (!take("="))
            return false;
        skip_space();
        if (rest_.empty() || (rest_[0] != '"' && rest_[0] != '\''))
            return false;
        const size_t end = rest_.find(rest_[0], 1);
        if (end == std::string_view::npos || slice(rest_, 0, end).find('<') != std::string_view::npos)
            return false;
        rest_.remove_prefix(end + 1);
    }
    return true;
}

std::string_view XmlReader::attribute(std::string_view wanted) const {
    XmlReader tag(attributes_); // has been checked, so each step finds what it looks for
    while (tag.skip_space() && !tag.rest_.empty()) {
        const std::string_view name = tag.read_name();
        tag.skip_space();
        tag.take("=");
        tag.skip_space();
        const std::string_view value = slice(tag.rest_, 1, tag.rest_.find(tag.rest_[0], 1) - 1);
        if (without_prefix(name) == wanted)
            return value;
        tag.rest_.remove_prefix(value.size() + 2);
    }
    return {};
}

std::string_view XmlReader::read_name() {
    size_t size = 0;
    if (!rest_.empty() && starts_name(rest_[0]))
        while (size < rest_.size() && continues_name(rest_[size]))
            size++;
    const std::string_view name = slice(rest_, 0, size);
    rest_.remove_prefix(size);
    return name;
}

bool XmlReader::skip_past(std::string_view mark) {
    const size_t place = rest_.find(mark);
    if (place == std::string_view::npos)
        return false;
    rest_.remove_prefix(place + mark.size());
    return true;
}

bool XmlReader::skip_space() {
    const size_t before = rest_.size();
    while (!rest_.empty() && is_space(rest_[0]))
        rest_.remove_prefix(1);
    return rest_.size() != before;
}

bool XmlReader::take(std::string_view token) {
    if (slice(rest_, 0, token.size()) != token)
        return false;
    rest_.remove_prefix(token.size());
    return true;
}

} // namespace zul
