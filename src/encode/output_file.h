#pragma once
#include "frame/file_writer.h"

namespace zul {

// output_write writes a file of bytes, as PEM with lines of lineLen characters if label is not null: 0,
// CREATE_ERROR without a text, which the caller knows best, or WRITE_ERROR with one.
[[nodiscard]] int output_write(const char* path, const SecretBuffer& bytes, const char* label, int lineLen,
                               const WriteRules& rules);

// output_finish finishes a file: 0, or WRITE_ERROR with a text.
[[nodiscard]] int output_finish(FileWriter& out, const char* path);

} // namespace zul
