#include "cert/names/name_check.h"

#include "cert/names/name_attribute.h"
#include "encode/utf8_scalar.h"
#include "frame/err.h"
#include "zulcore.h"

namespace zul {
namespace {

[[nodiscard]] int bad(const char* why) {
    return err_fail(BAD_FORMAT_ERROR, "Invalid name: %s", why);
}

// Characters of a fixed number of bytes each: 1 for those of ASCII types and T61String.
bool next_character(std::string_view& rest, size_t width, char32_t& character) {
    if (rest.size() < width)
        return false;
    character = 0;
    for (size_t i = 0; i < width; i++)
        character = character << 8 | static_cast<unsigned char>(rest[i]);
    rest.remove_prefix(width);
    return true;
}

[[nodiscard]] int check_value(const DerElement& value, const NameAttribute& attribute) {
    const uint8_t type = value.identifier;
    const bool isUtf8 = type == kDerUtf8String, isWide = type == kDerBmpString || type == kDerUniversalString;
    const bool isAscii = type == kDerPrintableString || type == kDerIa5String || type == kDerVisibleString;
    if (!isUtf8 && !isWide && !isAscii && type != kDerTeletexString)
        return bad("a value that is no string");
    const size_t width = type == kDerUniversalString ? 4 : type == kDerBmpString ? 2 : 1;
    std::string_view rest = value.content.text();
    size_t count = 0;
    for (; !rest.empty(); count++) {
        char32_t c = 0;
        if (!(isUtf8 ? utf8_next(rest, c) : next_character(rest, width, c)))
            return bad("a string that is not encoded as its type says");
        if (c < 0x20 || (c >= 0x7F && c < 0xA0 && type != kDerTeletexString))
            return bad("a control character");
        if ((isAscii && c >= 0x7F) ||
            (type == kDerPrintableString && !is_printable_character(static_cast<char>(c))))
            return bad("a character that the type of its string lacks");
    }
    if (count == 0 || count > attribute.most || (attribute.kind == NameValueKind::country && count != 2))
        return bad("a value that is empty, or longer than its attribute may be");
    return 0;
}

[[nodiscard]] int check_relative_name(DerView attributes) {
    DerReader all(attributes);
    do {
        DerView attribute, type;
        DerElement value;
        if (!all.take(kDerSequence, attribute))
            return bad("not a SET of attributes");
        DerReader fields(attribute);
        if (!fields.take(kDerOid, type) || !der_is_oid(type) || !fields.take_any(value) || !fields.at_end())
            return bad("an attribute that is no type and value");
        if (const int error = check_value(value, name_attribute_of(type.text())))
            return error;
    } while (!all.at_end());
    return 0;
}

} // namespace

int name_check(DerView name) {
    DerView content, attributes;
    if (!der_single(name, kDerSequence, content))
        return bad("not a SEQUENCE");
    DerReader names(content);
    while (!names.at_end()) {
        if (!names.take(kDerSet, attributes))
            return bad("not a SEQUENCE of SETs");
        if (const int error = check_relative_name(attributes))
            return error;
    }
    return 0;
}

} // namespace zul
