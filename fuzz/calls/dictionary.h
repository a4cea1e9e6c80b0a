#pragma once
#include <map>
#include <string>
#include <vector>

#include "fixtures.h"

namespace endurance {

using Words = std::vector<std::string>;

// Dictionary has the texts that functions know, in groups.
class Dictionary {
  public:
    explicit Dictionary(const Fixtures& fixtures);

    // words_for gives those that a parameter wants, by its name and the family of its function.
    const Words& words_for(const std::string& function, const std::string& parameter);
    size_t size() const { return groups_.size(); }
    const Words& group(size_t number) const;

  private:
    std::map<std::string, Words> groups_;
    std::map<std::string, std::string> chosen_; // of groups for parameters
};

} // namespace endurance
