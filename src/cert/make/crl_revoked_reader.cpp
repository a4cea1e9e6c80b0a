#include "cert/make/crl_revoked_reader.h"

#include <algorithm>

#include "frame/err.h"
#include "frame/slice.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

} // namespace

bool RevokedReader::refuse(const char* why) {
    error_ = err_fail(BAD_PARAM_ERROR, "%s", why);
    return false;
}

void RevokedReader::skip_blanks() {
    rest_ = slice(rest_, std::min(rest_.find_first_not_of(kBlanks), rest_.size()));
}

bool RevokedReader::next_entry() {
    for (skip_blanks(); rest_.starts_with(';'); skip_blanks())
        rest_.remove_prefix(1);
    inEntry_ = !rest_.empty();
    number_ += inEntry_;
    return inEntry_;
}

bool RevokedReader::next_field() {
    if (!inEntry_ || error_ != 0)
        return false;
    inEntry_ = false;
    keyword_ = value_ = {};
    const size_t end = std::min(rest_.find_first_of("=,;"), rest_.size());
    keyword_ = trimmed(slice(rest_, 0, end), kBlanks);
    rest_.remove_prefix(end);
    if (keyword_.empty() || !rest_.starts_with('='))
        return refuse("A field is keyword=value");
    rest_.remove_prefix(1);
    skip_blanks();
    if (rest_.starts_with('\'')) {
        if (!read_quoted())
            return false;
        skip_blanks();
        if (!rest_.empty() && rest_[0] != ';' && rest_[0] != ',')
            return refuse("Something stands behind the closing quote");
    } else {
        const size_t length = std::min(rest_.find_first_of(",;"), rest_.size());
        value_ = trimmed(slice(rest_, 0, length), kBlanks);
        rest_.remove_prefix(length);
    }
    if (value_.empty())
        return refuse("An empty value");
    inEntry_ = rest_.starts_with(',');
    rest_.remove_prefix(inEntry_);
    return true;
}

bool RevokedReader::read_quoted() {
    unquoted_ = SecretBuffer();
    for (size_t i = 1; i < rest_.size(); i++) {
        if (rest_[i] == '\'') {
            rest_.remove_prefix(i + 1);
            value_ = {unquoted_.text(), unquoted_.size()};
            return true;
        }
        if (rest_[i] == '\\' && i + 1 < rest_.size())
            i++;
        unquoted_.append(&rest_[i], 1);
    }
    return refuse("A closing quote is missing");
}

} // namespace zul
