#include "library.h"

#include "failures.h"

namespace tool {

namespace {

std::string module_name(int option) {
    char text[261] = {};
    accept_length(ZUL_ModuleName(text, sizeof text - 1, option), "name of the module");
    return text;
}

} // namespace

Library about_library() {
    const int number = ZUL_Version(nullptr, nullptr);
    char built[32] = {};
    accept_length(ZUL_CompileTime(built, sizeof built - 1), "time of the build");
    return {std::to_string(number / 100) + "." + std::to_string(number / 10 % 10) + "." +
                std::to_string(number % 10),
            built, module_name(0), module_name(ZUL_MODULE_PLATFORM)};
}

} // namespace tool
