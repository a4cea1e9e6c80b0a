#pragma once
#include "asn1/asn_node.h"
#include "frame/memory.h"

// Distinguished names (X.501; RFC 5280, 4.1.2.4) and their text: keyword=value pairs joined by ";".
namespace zul {

// name_encode makes a Name of the pairs of a text, in their order, as one packed node: the number of pairs
// that it recognises. Others are skipped. options: ZUL_X509_UTF8.
int name_encode(const char* text, int options, AsnList& name);

// name_text writes a Name as text, which a NUL follows. delimiter: null or empty for ";", else its first
// character. options: ZUL_X509_LATIN1. 0, or BAD_FORMAT_ERROR with a text.
[[nodiscard]] int name_text(const asn_Node* name, const char* delimiter, int options, SecretBuffer& text);

// name_print writes it into a caller's room and cuts what does not fit. *length is that of the text written,
// or of the whole text if there is no output or room.
[[nodiscard]] int name_print(const asn_Node* name, char* out, int nChars, const char* delimiter, int options,
                             int* length);

} // namespace zul
