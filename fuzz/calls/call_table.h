#pragma once
#include <span>

#include "arguments.h"

namespace endurance {

struct Call {
    const char* name;
    int (*make)(Arguments&);
};

// Every export.
std::span<const Call> calls();

} // namespace endurance
