#pragma once

namespace zul {

constexpr int kMaxPathLength = 20;

// validate_path orders and checks a path: 0 or a positive code with a text.
[[nodiscard]] int validate_path(const char* certList, const char* trustedCert, int options);

} // namespace zul
