#pragma once
#include "pfx/p12_entry.h"

namespace zul {

// p12_read_certificates adds the certificates of a list joined by ";": files and texts of DER, base64 or PEM
// with any number of them. Those that are there already are left out. 0 or a positive code with a text:
// OPEN_ERROR, READ_ERROR, BAD_FORMAT_ERROR, NO_DATA_ERROR (an item without a certificate),
// INVALID_DATA_ERROR, OUT_OF_RANGE_ERROR.
[[nodiscard]] int p12_read_certificates(P12Entries& certificates, const char* list);

// p12_lists_file tells whether an item of the list names the file at a path.
[[nodiscard]] bool p12_lists_file(const char* list, const char* path);

} // namespace zul
