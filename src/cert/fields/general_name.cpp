#include "cert/fields/general_name.h"

namespace zul {

namespace {

bool is_ascii(DerView text) {
    for (const uint8_t octet : text)
        if (octet >= 0x80)
            return false;
    return true;
}

bool other_name_is_valid(DerView content) {
    DerReader fields(content);
    DerView type, value;
    DerElement inner;
    if (!fields.take(kDerOid, type) || !der_is_oid(type) || !fields.take(der_explicit(0), value) ||
        !fields.at_end())
        return false;
    DerReader single(value);
    return single.take_any(inner) && single.at_end();
}

bool value_is_valid(const GeneralNameView& name) {
    DerView inner;
    switch (name.type) {
    case GeneralNameType::otherName:
        return other_name_is_valid(name.value);
    case GeneralNameType::rfc822Name:
    case GeneralNameType::dNSName:
    case GeneralNameType::uniformResourceIdentifier:
        return is_ascii(name.value);
    case GeneralNameType::directoryName:
        return der_single(name.value, kDerSequence, inner);
    case GeneralNameType::registeredID:
        return der_is_oid(name.value);
    default:
        return true;
    }
}

bool is_constructed(GeneralNameType type) {
    return type == GeneralNameType::otherName || type == GeneralNameType::x400Address ||
           type == GeneralNameType::directoryName || type == GeneralNameType::ediPartyName;
}

} // namespace

bool take_general_name(DerReader& reader, GeneralNameView& name) {
    DerReader ahead = reader;
    DerElement element;
    if (!ahead.take_any(element))
        return false;
    const unsigned tag = element.identifier & 0x1F;
    if (tag > 8)
        return false;
    name.type = static_cast<GeneralNameType>(tag);
    if (element.identifier != (is_constructed(name.type) ? der_explicit(tag) : der_context(tag)))
        return false;
    name.value = element.content;
    name.encoding = element.encoding;
    if (!value_is_valid(name))
        return false;
    reader = ahead;
    return true;
}

bool general_names_are_valid(DerView names) {
    GeneralNameReader reader(names);
    GeneralNameView name;
    if (names.empty())
        return false;
    while (reader.next(name)) {
    }
    return reader.at_end();
}

} // namespace zul
