#pragma once

namespace zul {

// Both give 0 or a positive code with a text. pfxFile is the name of a file, or text.

// pfx_verify checks the MAC. password may be empty.
[[nodiscard]] int pfx_verify(const char* pfxFile, const char* password);

// pfx_extract writes the first certificate, or the first key as it stands, encrypted, to a file.
enum class PfxContent { certificate, key };
[[nodiscard]] int pfx_extract(const char* path, const char* pfxFile, PfxContent what);

} // namespace zul
