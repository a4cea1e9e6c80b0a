#include "cert/make/description.h"

#include <algorithm>

#include "frame/err.h"
#include "frame/slice.h"
#include "frame/text.h"
#include "x509/names/pair_reader.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

SecretBuffer text_copy(std::string_view text) {
    SecretBuffer copy;
    copy.append(text.data(), text.size());
    return copy;
}

const char* shown(const SecretBuffer& text) {
    return text.empty() ? "" : shown_name(text.text());
}

} // namespace

DescriptionReader::DescriptionReader(const char* text, const DescriptionKeyword* rows, size_t count)
    : rows_(rows), count_(count), rest_(text == nullptr ? "" : text) {
    if (rest_.size() > kMaxDescription)
        error_ = err_fail(BAD_PARAM_ERROR, "The description is too long");
}

const DescriptionItem* DescriptionReader::next() {
    if (error_ != 0)
        return nullptr;
    if (inList_)
        return read_value() ? &item_ : nullptr;
    if (!begin_pair())
        return nullptr;
    return (item_.row != nullptr && item_.row->form == DescriptionForm::flag ? read_flag() : read_value())
               ? &item_
               : nullptr;
}

void DescriptionReader::refuse(const char* why) {
    error_ = fail(err_fail(BAD_PARAM_ERROR, "%s", why));
}

int DescriptionReader::fail(int code) const {
    if (value_.empty())
        err_add_text("in '%s'", shown(keyword_));
    else
        err_add_text("in '%s=%s'", shown(keyword_), shown(value_));
    return code;
}

int DescriptionReader::unknown() const {
    return err_fail(BAD_PARAM_ERROR, "Unknown keyword");
}

void DescriptionReader::skip_blanks() {
    rest_ = slice(rest_, std::min(rest_.find_first_not_of(kBlanks), rest_.size()));
}

// begin_pair reads a keyword and what follows up to the value; false at the end.
bool DescriptionReader::begin_pair() {
    for (skip_blanks(); rest_.starts_with(';'); skip_blanks())
        rest_.remove_prefix(1);
    if (rest_.empty())
        return false;
    const size_t end = std::min(rest_.find_first_of("=;"), rest_.size());
    keyword_ = text_copy(trimmed(slice(rest_, 0, end), kBlanks));
    value_ = SecretBuffer();
    rest_.remove_prefix(end);
    const std::string_view keyword(keyword_.text(), keyword_.size());
    item_ = {nullptr, keyword_.text(), {}, true};
    if (keyword.empty()) {
        refuse("A keyword is missing");
        return false;
    }
    for (size_t i = 0; i < count_ && item_.row == nullptr; i++) {
        if (!same_word(keyword, rows_[i].keyword))
            continue;
        item_.row = &rows_[i];
        if ((seen_ >> i & 1) != 0 && !rows_[i].repeats) {
            refuse("Given twice");
            return false;
        }
        seen_ |= uint64_t{1} << i;
    }
    return true;
}

bool DescriptionReader::read_flag() {
    const size_t end = std::min(rest_.find(';'), rest_.size());
    if (rest_.starts_with('=')) {
        const std::string_view word = trimmed(slice(rest_, 1, end - 1), kBlanks);
        value_ = text_copy(word);
        item_.isSet = same_word(word, "true");
        if (!item_.isSet && !same_word(word, "false")) {
            refuse("A flag stands alone, or is true or false");
            return false;
        }
    }
    rest_.remove_prefix(end);
    return true;
}

// read_value reads up to the ";" behind a value, or up to the "," in a list.
bool DescriptionReader::read_value() {
    if (!inList_ && !rest_.starts_with('=')) {
        refuse(item_.row == nullptr ? "Unknown keyword, or one that needs a value" : "The value is missing");
        return false;
    }
    rest_.remove_prefix(!inList_);
    inList_ = false;
    value_ = SecretBuffer();
    skip_blanks();
    const bool isList = item_.row != nullptr && item_.row->form == DescriptionForm::list;
    if (rest_.starts_with('\'')) {
        if (!read_quoted())
            return false;
        skip_blanks();
        if (!rest_.empty() && rest_[0] != ';' && (!isList || rest_[0] != ',')) {
            refuse("Something stands behind the closing quote");
            return false;
        }
    } else {
        const size_t end = std::min(rest_.find_first_of(isList ? ",;" : ";"), rest_.size());
        value_ = text_copy(trimmed(slice(rest_, 0, end), kBlanks));
        rest_.remove_prefix(end);
    }
    inList_ = rest_.starts_with(',');
    rest_.remove_prefix(inList_);
    if (value_.empty()) {
        refuse("An empty value");
        return false;
    }
    item_.value = {value_.text(), value_.size()};
    return true;
}

bool DescriptionReader::read_quoted() {
    for (size_t i = 1; i < rest_.size(); i++) {
        if (rest_[i] == '\'') {
            rest_.remove_prefix(i + 1);
            return true;
        }
        if (rest_[i] == '\\' && i + 1 < rest_.size())
            i++;
        value_.append(&rest_[i], 1);
    }
    refuse("A closing quote is missing");
    return false;
}

} // namespace zul
