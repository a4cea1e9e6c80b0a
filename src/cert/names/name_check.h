#pragma once
#include "asn1/der_reader.h"

namespace zul {

// name_check looks at a Name that others made and that a new certificate is to take over: relative names that
// are not empty, values of string types that keep to their characters, without control characters, not empty
// and within the bounds of their attributes. 0 or BAD_FORMAT_ERROR with a text.
[[nodiscard]] int name_check(DerView name);

} // namespace zul
