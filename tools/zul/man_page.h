#pragma once
#include <string>

#include "command_tree.h"

namespace tool {

// man_page writes the manual page of a command in the man macros of roff. date: 2026-01-31.
std::string man_page(const Command& root, const Command& command, const std::string& version,
                     const std::string& date);
std::string man_page_name(const Command& command); // "zul-cert-issue"

} // namespace tool
