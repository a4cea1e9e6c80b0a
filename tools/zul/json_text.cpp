#include "json_text.h"

#include <algorithm>
#include <cstdio>

#include "operating_system.h"

namespace tool {

namespace {

void append(SecretBytes& out, std::string_view text) {
    out.insert(out.end(), text.begin(), text.end());
}

// Character is the first character of a text: its size and number, or a size of 0 for what is not UTF-8
// (RFC 3629, 4: no surrogates, nothing longer than needed, nothing above U+10FFFF).
struct Character {
    size_t size = 0;
    uint32_t number = 0;

    explicit Character(std::string_view text) {
        const auto first = static_cast<unsigned char>(text[0]);
        const size_t wanted = first < 0x80 ? 1 : first < 0xC2 ? 0 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
        if (wanted == 0 || first > 0xF4 || text.size() < wanted)
            return;
        number = wanted == 1 ? first : first & (0x7FU >> wanted);
        for (size_t i = 1; i < wanted; ++i) {
            const auto next = static_cast<unsigned char>(text[i]);
            if ((next & 0xC0) != 0x80)
                return;
            number = number << 6 | (next & 0x3F);
        }
        const bool isTooLong = (wanted == 3 && number < 0x800) || (wanted == 4 && number < 0x10000);
        if (!isTooLong && number <= 0x10FFFF && (number < 0xD800 || number > 0xDFFF))
            size = wanted;
    }
    // Controls, and the line ends that JavaScript has.
    bool is_escaped() const {
        return number < 0x20 || (number >= 0x7F && number < 0xA0) || number == 0x2028 || number == 0x2029;
    }
};

void append_string(SecretBytes& out, std::string_view text) {
    append(out, "\"");
    while (!text.empty()) {
        const Character character(text);
        const size_t size = std::max<size_t>(character.size, 1);
        if (character.size == 0) {
            append(out, "\xEF\xBF\xBD");
        } else if (text[0] == '"' || text[0] == '\\') {
            append(out, "\\");
            append(out, text.substr(0, 1));
        } else if (text[0] == '\n') {
            append(out, "\\n");
        } else if (character.is_escaped()) {
            char escape[8];
            std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(character.number));
            append(out, escape);
        } else {
            append(out, text.substr(0, size));
        }
        text.remove_prefix(size);
    }
    append(out, "\"");
}

// utf8_name gives a file's name; on Windows its bytes may be in another encoding.
std::string utf8_name(const std::string& file) {
    const std::u8string name = path_of(file).u8string();
    return {name.begin(), name.end()};
}

} // namespace

void JsonObject::begin(std::string_view name) {
    if (!members_.empty())
        append(members_, ",");
    append_string(members_, name);
    append(members_, ":");
}

JsonObject& JsonObject::add(std::string_view name, std::string_view text) {
    begin(name);
    append_string(members_, text);
    return *this;
}

JsonObject& JsonObject::add(std::string_view name, bool truth) {
    return add_raw(name, truth ? "true" : "false");
}

JsonObject& JsonObject::add(std::string_view name, const JsonObject& object) {
    begin(name);
    append(members_, "{");
    members_.insert(members_.end(), object.members_.begin(), object.members_.end());
    append(members_, "}");
    return *this;
}

JsonObject& JsonObject::add(std::string_view name, const JsonArray& array) {
    begin(name);
    append(members_, "[");
    members_.insert(members_.end(), array.items_.begin(), array.items_.end());
    append(members_, "]");
    return *this;
}

JsonObject& JsonObject::add_file(std::string_view name, const std::string& file) {
    return add(name, utf8_name(file));
}

JsonObject& JsonObject::add_hex(std::string_view name, const unsigned char* bytes, size_t count) {
    static constexpr char kDigits[] = "0123456789abcdef";
    begin(name);
    append(members_, "\"");
    for (size_t i = 0; i < count; ++i)
        for (const char digit : {kDigits[bytes[i] >> 4], kDigits[bytes[i] & 15]})
            members_.push_back(static_cast<unsigned char>(digit));
    append(members_, "\"");
    return *this;
}

JsonObject& JsonObject::add_raw(std::string_view name, std::string_view json) {
    begin(name);
    append(members_, json);
    return *this;
}

JsonObject& JsonObject::join(const JsonObject& other) {
    return join_text({as_text(other.members_), other.members_.size()});
}

JsonObject& JsonObject::join_text(std::string_view json) {
    while (json.ends_with('\n') || json.ends_with('\0'))
        json.remove_suffix(1);
    if (json.starts_with('{') && json.ends_with('}'))
        json = json.substr(1, json.size() - 2);
    if (!json.empty() && !members_.empty())
        append(members_, ",");
    append(members_, json);
    return *this;
}

SecretBytes JsonObject::text() const {
    SecretBytes text;
    text.reserve(members_.size() + 3);
    append(text, "{");
    text.insert(text.end(), members_.begin(), members_.end());
    append(text, "}\n");
    return text;
}

void JsonArray::begin() {
    if (!items_.empty())
        append(items_, ",");
}

JsonArray& JsonArray::add(std::string_view text) {
    begin();
    append_string(items_, text);
    return *this;
}

JsonArray& JsonArray::add(const JsonObject& object) {
    begin();
    append(items_, "{");
    items_.insert(items_.end(), object.members_.begin(), object.members_.end());
    append(items_, "}");
    return *this;
}

JsonArray& JsonArray::add_file(const std::string& file) {
    return add(std::string_view(utf8_name(file)));
}

} // namespace tool
