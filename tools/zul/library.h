#pragma once
#include <string>

namespace tool {

// Library is what the library says of itself.
struct Library {
    std::string version, built, module, platform;
};
Library about_library();

} // namespace tool
