#pragma once
#include "frame/memory.h"

namespace zul {

// p12_list describes a PKCS #12 file, without a password (null) what is visible without one: 0 or a positive
// code with a text.
[[nodiscard]] int p12_list(SecretBuffer& text, const char* p12, const char* password, int options);

} // namespace zul
