#include "cert/report/text_report.h"

#include "cert/fields/oid_names.h"
#include "cert/names/name_print.h"

namespace zul {

namespace {

constexpr size_t kIndent = 2;
constexpr size_t kColumn = 30;    // of values
constexpr size_t kLineBytes = 32; // of values in hex

} // namespace

void TextReport::begin_item(std::string_view kind, size_t number) {
    if (out_.size() > 0)
        out_.put('\n');
    if (number > 0) {
        out_.put('[');
        out_.put_number(static_cast<int64_t>(number));
        out_.put("] ");
    }
    out_.put(kind);
    out_.put('\n');
    state_.depth = 1;
}

void TextReport::put_key(std::string_view key) {
    const size_t indent = kIndent * state_.depth;
    out_.pad(state_.hasDash ? indent - kIndent : indent);
    if (state_.hasDash)
        out_.put("- ");
    out_.put(state_.hasTitle ? title_.text() : key);
    state_.hasDash = state_.hasTitle = false;
}

size_t TextReport::begin_line(std::string_view key) {
    const size_t start = out_.size();
    const bool isNamed = !key.empty() || state_.hasTitle;
    put_key(key);
    if (isNamed) {
        const size_t width = out_.size() - start;
        out_.pad(width < kColumn ? kColumn - width : 1);
    }
    return out_.size() - start;
}

// begin_inside writes the line above what belongs to it.
void TextReport::begin_inside(std::string_view key) {
    put_key(key);
    out_.put('\n');
    state_.depth++;
}

void TextReport::begin_object(std::string_view key) {
    if (!key.empty()) {
        begin_inside(key);
        return;
    }
    state_.depth++;
    state_.hasDash = true;
}

void TextReport::end_object() {
    state_.depth--;
    state_.hasDash = false;
}

void TextReport::begin_list(std::string_view key) {
    begin_inside(key);
}

void TextReport::begin_extension(DerView oid, bool isCritical) {
    title_.shrink(0);
    put_oid(title_, oid);
    if (isCritical)
        title_.put(" (critical)");
    state_.hasTitle = true;
}

void TextReport::begin_words(std::string_view key) {
    begin_line(key);
    state_.isInWords = true;
    state_.hasItems = false;
}

void TextReport::end_words() {
    state_.isInWords = false;
    out_.put('\n');
}

void TextReport::word(std::string_view key, std::string_view text) {
    if (state_.isInWords) {
        if (state_.hasItems)
            out_.put(", ");
        state_.hasItems = true;
        out_.put(text);
        return;
    }
    begin_line(key);
    out_.put(text);
    out_.put('\n');
}

void TextReport::number(std::string_view key, int64_t value) {
    char digits[24];
    TextBuffer text(digits, sizeof digits - 1);
    text.put_number(value);
    word(key, text.text());
}

void TextReport::put_bytes(DerView value, size_t column) {
    while (value.size > kLineBytes) {
        out_.put_hex(value.data, kLineBytes);
        out_.put('\n');
        out_.pad(column);
        value = {value.data + kLineBytes, value.size - kLineBytes};
    }
    out_.put_hex(value.data, value.size);
    out_.put('\n');
}

void TextReport::bytes(std::string_view key, DerView value) {
    put_bytes(value, begin_line(key));
}

void TextReport::string(std::string_view key, const DerElement& value) {
    begin_line(key);
    put_string(out_, value);
    out_.put('\n');
}

void TextReport::name(std::string_view key, DerView name) {
    begin_line(key);
    put_name(out_, name);
    out_.put('\n');
}

void TextReport::relative_name(std::string_view key, DerView relative) {
    begin_line(key);
    put_relative_name(out_, relative);
    out_.put('\n');
}

void TextReport::malformed(std::string_view key, DerView encoding) {
    constexpr std::string_view kMark = "malformed ";
    const size_t column = begin_line(key);
    out_.put(kMark);
    put_bytes(encoding, column + kMark.size());
}

ReportWriter::Mark TextReport::mark() const {
    Mark mark = state_;
    mark.size = out_.size();
    return mark;
}

void TextReport::rewind(const Mark& mark) {
    out_.shrink(mark.size);
    state_ = mark;
}

} // namespace zul
