#include "cert/report/json_report.h"

#include "cert/fields/oid_names.h"
#include "cert/names/string_value.h"
#include "encode/shown_character.h"

namespace zul {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool is_plain(char c) {
    return c >= 0x20 && c != 0x7F && c != '"' && c != '\\';
}

void put_character(TextBuffer& out, char32_t character) {
    char bytes[kMaxJsonCharacter];
    out.put({bytes, json_put(bytes, character)});
}

} // namespace

void JsonReport::begin_value(std::string_view key) {
    if (hasItems_)
        out_.put(',');
    hasItems_ = true;
    if (key.empty())
        return;
    out_.put('"');
    out_.put(key);
    out_.put("\":");
}

void JsonReport::open(std::string_view key, char bracket) {
    begin_value(key);
    out_.put(bracket);
    hasItems_ = false;
}

void JsonReport::close(char bracket) {
    out_.put(bracket);
    hasItems_ = true;
}

void JsonReport::begin_item(std::string_view kind, size_t) {
    begin_object({});
    word("kind", kind);
}

void JsonReport::begin_extension(DerView oid, bool isCritical) {
    begin_object({});
    TextBuffer dotted;
    put_oid_dotted(dotted, oid);
    word("extnID", dotted.text());
    if (const std::string_view name = oid_name(oid); !name.empty())
        word("extnName", name);
    flag("critical", isCritical);
}

void JsonReport::word(std::string_view key, std::string_view text) {
    begin_value(key);
    out_.put('"');
    out_.put(text);
    out_.put('"');
}

void JsonReport::number(std::string_view key, int64_t value) {
    begin_value(key);
    out_.put_number(value);
}

void JsonReport::flag(std::string_view key, bool value) {
    begin_value(key);
    out_.put(value ? "true" : "false");
}

void JsonReport::null(std::string_view key) {
    begin_value(key);
    out_.put("null");
}

void JsonReport::bytes(std::string_view key, DerView value) {
    begin_value(key);
    out_.put('"');
    out_.put_hex(value.data, value.size);
    out_.put('"');
}

void JsonReport::put_characters(const DerElement& value) {
    StringReader reader(value.identifier, value.content);
    while (!reader.at_end()) {
        std::string_view run = reader.ascii_run();
        while (!run.empty()) {
            size_t plain = 0;
            while (plain < run.size() && is_plain(run[plain]))
                plain++;
            out_.put(run.substr(0, plain));
            if (plain < run.size())
                put_character(out_, static_cast<unsigned char>(run[plain++]));
            run.remove_prefix(plain);
        }
        if (reader.at_end())
            return;
        bool isCharacter;
        const char32_t character = reader.next(isCharacter);
        put_character(out_, isCharacter ? character : kReplacement);
    }
}

void JsonReport::string(std::string_view key, const DerElement& value) {
    if (!string_type_is_known(value.identifier)) {
        begin_object(key);
        bytes("der", value.encoding);
        end_object();
        return;
    }
    begin_value(key);
    out_.put('"');
    put_characters(value);
    out_.put('"');
}

// put_text writes a text that is UTF-8 without controls.
void JsonReport::put_text(std::string_view utf8) {
    out_.put('"');
    for (const char c : utf8) {
        if (c == '"' || c == '\\')
            out_.put('\\');
        out_.put(c);
    }
    out_.put('"');
}

bool JsonReport::put_attributes(NameReader reader) {
    NameAttribute attribute;
    bool isFirst = true;
    begin_list("rdnSequence");
    while (reader.next(attribute)) {
        if (attribute.beginsRdn && !isFirst)
            end_list();
        if (attribute.beginsRdn)
            begin_list({});
        isFirst = false;
        begin_object({});
        TextBuffer type;
        put_oid(type, attribute.type);
        word("type", type.text());
        string("value", attribute.value);
        end_object();
    }
    if (!isFirst)
        end_list();
    end_list();
    return reader.is_good();
}

void JsonReport::name(std::string_view key, DerView name) {
    show_guarded(*this, key, name, [&] {
        TextBuffer text;
        begin_object(key);
        const bool isGood = put_name(text, name);
        begin_value("text");
        put_text(text.text());
        const bool isWhole = isGood && put_attributes(NameReader::of_name(name));
        end_object();
        return isWhole;
    });
}

void JsonReport::relative_name(std::string_view key, DerView relative) {
    show_guarded(*this, key, relative, [&] {
        TextBuffer text;
        const bool isGood = put_relative_name(text, relative);
        begin_value(key);
        put_text(text.text());
        return isGood;
    });
}

void JsonReport::malformed(std::string_view key, DerView encoding) {
    begin_object(key);
    bytes("malformed", encoding);
    end_object();
}

ReportWriter::Mark JsonReport::mark() const {
    Mark mark;
    mark.size = out_.size();
    mark.hasItems = hasItems_;
    return mark;
}

void JsonReport::rewind(const Mark& mark) {
    out_.shrink(mark.size);
    hasItems_ = mark.hasItems;
}

} // namespace zul
