#pragma once

namespace zul {

// text_dump writes the content of a certificate, request or CRL to a text file: 0 or a positive code with a
// text. After a failure the file holds what was written so far.
[[nodiscard]] int text_dump(const char* fileOut, const char* fileOrText);

} // namespace zul
