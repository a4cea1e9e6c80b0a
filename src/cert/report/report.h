#pragma once
#include "cert/input/object_list.h"
#include "frame/text_buffer.h"

namespace zul {

// write_report writes all objects of a list as text or JSON: 0, or BAD_FORMAT_ERROR with a text if none of
// them is of a known kind.
[[nodiscard]] int write_report(TextBuffer& out, const ObjectList& objects, bool isJson);

} // namespace zul
