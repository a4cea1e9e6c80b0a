#pragma once
#include <cstdint>

namespace zul {

struct ErrorRow {
    int32_t code;
    const char* name; // the symbolic name in zulcore.h
    const char* message;
};

constexpr int kErrorRows = 47;
extern const ErrorRow kErrorTable[kErrorRows];

// error_lookup finds the row of a positive code (or 0); null if there is none.
const ErrorRow* error_lookup(int code);

} // namespace zul
