#pragma once
#include <string>
#include <vector>

namespace tool {

// files_below gives the files in a folder and in those below it, sorted by the bytes of their names, which
// begin with the folder's and have "/" between their parts on every system. Links to folders are not followed
// and what is no file is left out, with a warning of each. isWhole becomes false, after a message, where
// something could not be read.
std::vector<std::string> files_below(const std::string& folder, bool& isWhole);

} // namespace tool
