#include "suggestions.h"

#include <algorithm>

namespace tool {

namespace {

// distance counts the letters to insert, drop, replace, or swap with the next one (optimal string alignment).
size_t distance(const std::string& one, const std::string& other) {
    std::vector<std::vector<size_t>> rows(one.size() + 1, std::vector<size_t>(other.size() + 1));
    for (size_t i = 0; i <= one.size(); ++i)
        for (size_t j = 0; j <= other.size(); ++j) {
            if (i == 0 || j == 0) {
                rows[i][j] = i + j;
                continue;
            }
            const size_t changed = one[i - 1] == other[j - 1] ? 0 : 1;
            rows[i][j] = std::min({rows[i - 1][j] + 1, rows[i][j - 1] + 1, rows[i - 1][j - 1] + changed});
            if (i > 1 && j > 1 && one[i - 1] == other[j - 2] && one[i - 2] == other[j - 1])
                rows[i][j] = std::min(rows[i][j], rows[i - 2][j - 2] + 1);
        }
    return rows[one.size()][other.size()];
}

} // namespace

std::vector<std::string> similar_names(const std::string& word, const std::vector<std::string>& names) {
    constexpr size_t kLongest = 40, kMost = 3;
    if (word.size() > kLongest)
        return {};
    std::vector<std::pair<size_t, std::string>> found;
    for (const std::string& name : names) {
        // Hyphens at the beginning are alike in all options and show nothing.
        const size_t letters = name.size() - std::min(name.size(), name.find_first_not_of('-'));
        const bool isBegun =
            word.size() > 2 && name.starts_with(word) && word.find_first_not_of('-') != word.npos;
        const size_t steps = isBegun ? 1 : distance(word, name);
        if (steps <= (letters < 3 ? 0 : letters < 6 ? 1 : letters < 10 ? 2 : 3))
            found.emplace_back(steps, name);
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<std::string> similar;
    for (size_t i = 0; i < found.size() && i < kMost; ++i)
        similar.push_back(found[i].second);
    return similar;
}

std::string did_you_mean(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names)
        text += (text.empty()             ? "\n     Did you mean '"
                 : &name == &names.back() ? " or '"
                                          : ", '") +
                name + "'";
    return text.empty() ? text : text + "?";
}

} // namespace tool
