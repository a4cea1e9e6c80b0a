#pragma once
#include "asn1/asn_node.h"

namespace zul {

// asn_read_input parses what an argument names or holds. The list is one SEQUENCE. The argument is
// - text with a PEM block of any label;
// - base64 of a SEQUENCE, which therefore begins with "M", unless a file of that name can be opened;
// - the name of a file of DER, PEM (perhaps after other text) or base64 (perhaps with line breaks).
// 0 or a positive code with a text: OPEN_ERROR, INVALID_DATA_ERROR, or NOT_SUPPORTED_ERROR for a PEM block
// with header lines. A file above maxSize bytes is OPEN_ERROR, a longer text INVALID_DATA_ERROR: the list of
// a structure takes about thirty times its size.
[[nodiscard]] int asn_read_input(const char* fileOrText, AsnList& list, size_t maxSize);

// asn_read_content does the same for the content of a file.
[[nodiscard]] int asn_read_content(const uint8_t* bytes, size_t size, AsnList& list);

} // namespace zul
