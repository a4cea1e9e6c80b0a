#pragma once
#include "cert/path/path_find.h"
#include "frame/text_buffer.h"

namespace zul {

struct CheckPathInput {
    const char *certificate, *others, *trusted, *evidence, *conditions; // as those of CERT_CheckPath
    int options;
};

// check_path does the work of CERT_CheckPath and writes the report, unless it is null: 0 or a code with a
// text.
[[nodiscard]] int check_path(const CheckPathInput& input, TextBuffer* report);

} // namespace zul
