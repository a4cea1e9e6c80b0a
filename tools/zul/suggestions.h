#pragma once
#include <string>
#include <vector>

namespace tool {

// similar_names gives those of some names that a misspelt one may stand for, the likeliest first, three at
// most.
std::vector<std::string> similar_names(const std::string& word, const std::vector<std::string>& names);
// did_you_mean asks for one of some names: "\n     Did you mean 'verify'?", or an empty text.
std::string did_you_mean(const std::vector<std::string>& names);

} // namespace tool
