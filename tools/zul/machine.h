#pragma once
#include <string>
#include <utility>
#include <vector>

// The machine as the library meets it.
namespace tool {

using Named = std::pair<std::string, std::string>;

// library_kernels names the code that the library has for this processor, for each group of algorithms. It is
// told from the same features that the library asks for.
std::vector<Named> library_kernels();

// library_options gives the options of the library that are set; options_place tells where. (posix/, win32/)
std::vector<Named> library_options();
std::string options_place();
// memory_protection tells what keeps secrets out of places where memory may go. (posix/, win32/)
std::string memory_protection();

} // namespace tool
