#pragma once
#include "asn1/asn_node.h"

namespace zul {

// asn_read_input parses what an argument names or holds: text with a PEM block of any label; base64 of a
// SEQUENCE, which so begins with "M", unless a file of that name can be opened; or a file, which holds DER,
// PEM with or without text before it, or base64 with or without line breaks. The list is one SEQUENCE. 0 or a
// positive code (OPEN_ERROR, INVALID_DATA_ERROR; NOT_SUPPORTED_ERROR for a PEM block with header lines), with
// a text. A file above maxSize bytes is OPEN_ERROR, a longer text INVALID_DATA_ERROR: the list of a structure
// takes some thirty times its own size.
[[nodiscard]] int asn_read_input(const char* fileOrText, AsnList& list, size_t maxSize);

// asn_read_content parses what a file holds, likewise.
[[nodiscard]] int asn_read_content(const uint8_t* bytes, size_t size, AsnList& list);

} // namespace zul
