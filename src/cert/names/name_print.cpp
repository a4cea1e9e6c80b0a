#include "cert/names/name_print.h"

#include "cert/fields/oid_names.h"
#include "cert/names/string_value.h"
#include "encode/shown_character.h"
#include "encode/utf8_scalar.h"

namespace zul {

namespace {

enum class Escapes { line, name };

void put_hex_byte(TextBuffer& out, uint8_t byte) {
    out.put("\\x");
    out.put_hex(&byte, 1);
}

void put_hidden(TextBuffer& out, char32_t character) {
    char bytes[kMaxUtf8];
    const size_t size = utf8_put(bytes, character);
    for (size_t i = 0; i < size; i++)
        put_hex_byte(out, static_cast<uint8_t>(bytes[i]));
}

bool is_plain(char c, Escapes escapes) {
    if (c < 0x20 || c == 0x7F || c == '\\')
        return false;
    return escapes == Escapes::line || std::string_view(",;+\"<>").find(c) == std::string_view::npos;
}

void put_character(TextBuffer& out, char32_t character, Escapes escapes) {
    if (is_hidden(character)) {
        put_hidden(out, character);
        return;
    }
    if (character < 0x80 && !is_plain(static_cast<char>(character), escapes))
        out.put('\\');
    char bytes[kMaxUtf8];
    out.put({bytes, utf8_put(bytes, character)});
}

void put_ascii_run(TextBuffer& out, std::string_view run, Escapes escapes) {
    while (!run.empty()) {
        size_t plain = 0;
        while (plain < run.size() && is_plain(run[plain], escapes))
            plain++;
        out.put(run.substr(0, plain));
        if (plain < run.size())
            put_character(out, static_cast<unsigned char>(run[plain++]), escapes);
        run.remove_prefix(plain);
    }
}

void put_characters(TextBuffer& out, uint8_t type, DerView content, Escapes escapes) {
    StringReader reader(type, content);
    while (!reader.at_end()) {
        put_ascii_run(out, reader.ascii_run(), escapes);
        if (reader.at_end())
            break;
        bool isCharacter;
        const char32_t character = reader.next(isCharacter);
        if (isCharacter)
            put_character(out, character, escapes);
        else
            put_hex_byte(out, static_cast<uint8_t>(character));
    }
}

void put_encoding(TextBuffer& out, DerView encoding) {
    out.put('#');
    out.put_hex(encoding.data, encoding.size);
}

bool ends_in_blank(const DerElement& value) {
    const size_t unit = value.is(kDerBmpString) ? 2 : value.is(kDerUniversalString) ? 4 : 1;
    if (value.content.size % unit != 0 || value.content.size == 0)
        return false;
    bool isCharacter;
    StringReader last(value.identifier, {value.content.end() - unit, unit});
    return last.next(isCharacter) == ' ' && isCharacter;
}

// put_attribute_value writes a value, of which the first and last characters need more care.
void put_attribute_value(TextBuffer& out, const DerElement& value) {
    if (!string_type_is_known(value.identifier)) {
        put_encoding(out, value.encoding);
        return;
    }
    StringReader ahead(value.identifier, value.content);
    bool isCharacter = false;
    const char32_t first = ahead.at_end() ? 0 : ahead.next(isCharacter);
    if (isCharacter && (first == ' ' || first == '#'))
        out.put('\\');
    const size_t start = out.size();
    put_characters(out, value.identifier, value.content, Escapes::name);
    if (out.size() - start > 1 && ends_in_blank(value)) {
        out.shrink(out.size() - 1);
        out.put("\\ ");
    }
}

bool put_attributes(TextBuffer& out, NameReader reader, DerView encoding) {
    const size_t start = out.size();
    NameAttribute attribute;
    while (reader.next(attribute)) {
        if (out.size() > start)
            out.put(attribute.beginsRdn ? ", " : "+");
        const std::string_view keyword = attribute_keyword(attribute.type);
        if (keyword.empty())
            put_oid_dotted(out, attribute.type);
        else
            out.put(keyword);
        out.put('=');
        put_attribute_value(out, attribute.value);
    }
    if (reader.is_good())
        return true;
    out.shrink(start);
    put_encoding(out, encoding);
    return false;
}

} // namespace

void put_string(TextBuffer& out, const DerElement& string) {
    if (string_type_is_known(string.identifier))
        put_characters(out, string.identifier, string.content, Escapes::line);
    else
        put_encoding(out, string.encoding);
}

void put_ascii_text(TextBuffer& out, DerView content) {
    put_characters(out, kDerIa5String, content, Escapes::line);
}

NameReader NameReader::of_name(DerView name) {
    DerView rdns;
    const bool isGood = der_single(name, kDerSequence, rdns);
    NameReader reader(rdns, {});
    reader.isGood_ = isGood;
    return reader;
}

NameReader NameReader::of_relative(DerView relative) {
    return {{}, relative};
}

bool NameReader::next(NameAttribute& attribute) {
    DerView fields, rdn;
    attribute.beginsRdn = attributes_.at_end();
    if (attribute.beginsRdn) {
        if (!isGood_ || rdns_.at_end())
            return false;
        if (!rdns_.take(kDerSet, rdn) || rdn.empty())
            return fail();
        attributes_ = DerReader(rdn);
    }
    if (!isGood_ || !attributes_.take(kDerSequence, fields))
        return fail();
    DerReader reader(fields);
    if (!reader.take(kDerOid, attribute.type) || !der_is_oid(attribute.type) ||
        !reader.take_any(attribute.value) || !reader.at_end())
        return fail();
    return true;
}

bool put_name(TextBuffer& out, DerView name) {
    return put_attributes(out, NameReader::of_name(name), name);
}

bool put_relative_name(TextBuffer& out, DerView relative) {
    return put_attributes(out, NameReader::of_relative(relative), relative);
}

std::string_view general_name_keyword(GeneralNameType type) {
    constexpr std::string_view kKeywords[] = {"otherName",
                                              "rfc822Name",
                                              "dNSName",
                                              "x400Address",
                                              "directoryName",
                                              "ediPartyName",
                                              "uniformResourceIdentifier",
                                              "iPAddress",
                                              "registeredID"};
    return kKeywords[static_cast<size_t>(type)];
}

static void put_other_name(TextBuffer& out, const GeneralNameView& name) {
    DerReader fields(name.value);
    DerView type, wrapped;
    DerElement value;
    if (!fields.take(kDerOid, type) || !fields.take(der_explicit(0), wrapped) ||
        !DerReader(wrapped).take_any(value)) {
        put_encoding(out, name.encoding);
        return;
    }
    put_oid(out, type);
    out.put(':');
    put_string(out, value);
}

void put_general_name(TextBuffer& out, const GeneralNameView& name) {
    switch (name.type) {
    case GeneralNameType::otherName:
        put_other_name(out, name);
        break;
    case GeneralNameType::rfc822Name:
    case GeneralNameType::dNSName:
    case GeneralNameType::uniformResourceIdentifier:
        put_ascii_text(out, name.value);
        break;
    case GeneralNameType::directoryName:
        put_name(out, name.value);
        break;
    case GeneralNameType::iPAddress:
        put_ip_address(out, name.value);
        break;
    case GeneralNameType::registeredID:
        put_oid_dotted(out, name.value);
        break;
    case GeneralNameType::x400Address:
    case GeneralNameType::ediPartyName:
        put_encoding(out, name.encoding);
        break;
    }
}

} // namespace zul
