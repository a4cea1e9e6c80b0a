#pragma once
#include <cstddef>
#include <cstdint>

namespace zul {

// content_write writes a content to a file: 0 or a positive code with a text, CREATE_ERROR, WRITE_ERROR, or
// IO_ERROR if the system reports only as it is closed that something was lost. The file that a failure leaves
// is removed.
int content_write(const char* path, const uint8_t* content, size_t size);

} // namespace zul
