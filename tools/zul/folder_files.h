#pragma once
#include <functional>
#include <string>
#include <vector>

#include "failures.h"

namespace tool {

// files_below gives the files in a folder and in those below it, sorted by the bytes of their names, which
// begin with the folder's and have "/" between their parts on every system. Links to folders are not followed
// and what is no file is left out, with a warning of each. onFailure is told what could not be read.
std::vector<std::string>
files_below(const std::string& folder,
            const std::function<void(const std::string& file, const Refused&)>& onFailure);

} // namespace tool
