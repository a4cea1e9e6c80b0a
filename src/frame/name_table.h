#pragma once
#include <cstddef>

// Names of algorithms as people type them.
namespace zul {

struct NameRow {
    const char* name; // in lower case
    int value;
    bool isAlias; // left out where the names are listed
};

// name_find looks a name up without regard to the case of its letters, and otherwise exactly. 0, or with a
// text that lists the names: BAD_PARAM_ERROR for null or an empty text, NOT_SUPPORTED_ERROR for any other
// that is not in the table.
[[nodiscard]] int name_find(const NameRow* rows, size_t count, const char* text, int* value);

template<size_t count>
[[nodiscard]] int name_find(const NameRow (&rows)[count], const char* text, int* value) {
    return name_find(rows, count, text, value);
}

} // namespace zul
