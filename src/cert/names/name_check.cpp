#include "cert/names/name_check.h"

#include "cert/names/name_attribute.h"
#include "cert/names/string_value.h"
#include "frame/array.h"
#include "frame/err.h"
#include "zulcore.h"

namespace zul {
namespace {

[[nodiscard]] int bad(const char* why) {
    return err_fail(BAD_FORMAT_ERROR, "Invalid name: %s", why);
}

[[nodiscard]] int check_value(const DerElement& value, const NameAttributeType& attribute) {
    const uint8_t type = value.identifier;
    const bool isUtf8 = type == kDerUtf8String, isWide = type == kDerBmpString || type == kDerUniversalString;
    const bool isAscii = type == kDerPrintableString || type == kDerIa5String || type == kDerVisibleString;
    if (!isUtf8 && !isWide && !isAscii && type != kDerTeletexString)
        return bad("a value that is no string");
    StringReader reader(type, value.content);
    size_t count = 0;
    for (; !reader.at_end(); count++) {
        bool isCharacter = false;
        const char32_t c = reader.next(isCharacter);
        if (!isCharacter)
            return bad("a string that is not encoded as its type says");
        if (c < 0x20 || (c >= 0x7F && c < 0xA0 && type != kDerTeletexString))
            return bad("a control character");
        if (type == kDerPrintableString && !is_printable_character(static_cast<char>(c)))
            return bad("a character that the type of its string lacks");
    }
    if (count == 0 || count > attribute.most || (attribute.kind == NameValueKind::country && count != 2))
        return bad("a value that is empty, or longer than its attribute may be");
    return 0;
}

// check_relative_name also holds the attributes to the order of DER (X.690, 11.6), and their types to be
// different ones (X.501, 9.3).
[[nodiscard]] int check_relative_name(DerView attributes) {
    constexpr size_t kMostTypes = 64; // each is compared with all the others
    DerReader all(attributes);
    Array<DerView> types;
    std::string_view before;
    do {
        DerView type;
        DerElement attribute, value;
        if (!all.take_any(attribute) || !attribute.is(kDerSequence))
            return bad("not a SET of attributes");
        if (attribute.encoding.text() < before)
            return bad("a SET that is not in the order of DER");
        before = attribute.encoding.text();
        DerReader fields(attribute.content);
        if (!fields.take(kDerOid, type) || !der_is_oid(type) || !fields.take_any(value) || !fields.at_end())
            return bad("an attribute that is no type and value");
        if (const int error = check_value(value, name_attribute_of(type.text())))
            return error;
        for (const DerView& other : types)
            if (other == type)
                return bad("an attribute that stands twice in one RDN");
        if (types.size() == kMostTypes)
            return bad("too many attributes in one RDN");
        types.add(type);
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
