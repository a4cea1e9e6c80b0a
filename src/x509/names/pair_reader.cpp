#include "x509/names/pair_reader.h"

#include <algorithm>

#include "frame/slice.h"

namespace zul {

namespace {

constexpr std::string_view kBlanks = " \t";

std::string_view without_leading(std::string_view text, std::string_view unwanted) {
    return slice(text, text.find_first_not_of(unwanted));
}

// quoted_end gives the offset behind the closing quote of a text that begins with one. Without a closing
// quote it is the end of the text.
size_t quoted_end(std::string_view text) {
    for (size_t i = 1; i < text.size(); i++)
        if (text[i] == '\\')
            i++;
        else if (text[i] == '\'')
            return i + 1;
    return text.size();
}

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

} // namespace

bool PairReader::next() {
    const size_t equals = rest_.find('=');
    if (equals == std::string_view::npos)
        return false;
    keyword_ = without_leading(slice(rest_, 0, equals), ";");
    keyword_ = without_leading(slice(keyword_, 0, keyword_.find(';')), kBlanks);

    rest_ = without_leading(slice(rest_, equals + 1), kBlanks);
    const bool isQuoted = rest_.starts_with('\'');
    raw_ = slice(rest_, 0, isQuoted ? quoted_end(rest_) : rest_.find(';'));
    rest_.remove_prefix(raw_.size());
    rest_.remove_prefix(std::min(rest_.find(';'), rest_.size()));
    return true;
}

SecretBuffer PairReader::value() const {
    SecretBuffer text(raw_.size() + 1);
    size_t n = 0;
    if (raw_.starts_with('\'') && raw_.size() >= 2) {
        for (size_t i = 1; i < raw_.size() && raw_[i] != '\''; i++) {
            if (raw_[i] == '\\' && i + 1 < raw_.size())
                i++;
            text[n++] = static_cast<uint8_t>(raw_[i]);
        }
    } else {
        n = raw_.copy(text.text(), raw_.size());
    }
    text[n] = 0;
    text.shrink(n);
    return text;
}

bool same_word(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return lower(x) == lower(y); });
}

} // namespace zul
