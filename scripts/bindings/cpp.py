"""C++: the names of the error codes. All else is in include/zulcore.hpp, which is written by hand."""

HEAD = """\
// Made from include/zulcore.h by scripts/make_bindings.py.
#ifndef ZULCORE_ERRORS_HPP
#define ZULCORE_ERRORS_HPP

#include "zulcore.h"

namespace zulcore {

// error_name gives the name of a positive error code, "DECRYPT_ERROR" for 15; "" if there is no such code.
constexpr const char* error_name(int code) noexcept {
    switch (code) {
"""
TAIL = """\
    default:
        return "";
    }
}

} // namespace zulcore

#endif
"""


def files_of(header):
    cases = "".join(f'    case {error.name}:\n        return "{error.name}";\n' for error in header.errors)
    return {"include/zulcore_errors.hpp": HEAD + cases + TAIL}
