#pragma once
#include "asn1/asn_node.h"
#include "frame/memory.h"

// Distinguished names (X.501; RFC 5280, 4.1.2.4) and their text: keyword=value pairs joined by ";".
namespace zul {

// name_encode makes a Name from the pairs of a text, in their order, as one packed node. It skips unknown
// pairs and gives the number of the others. options: ZUL_X509_UTF8.
int name_encode(const char* text, int options, AsnList& name);

// name_text writes a Name as text with a NUL behind it: 0, or BAD_FORMAT_ERROR with a text. The first
// character of delimiter stands between the pairs, or ";" if it is null or empty. options: ZUL_X509_LATIN1.
[[nodiscard]] int name_text(const asn_Node* name, const char* delimiter, int options, SecretBuffer& text);

// name_print writes the same text into a caller's room and cuts what does not fit. *length is that of the
// text written, or of the whole text if there is no output or room.
[[nodiscard]] int name_print(const asn_Node* name, char* out, int nChars, const char* delimiter, int options,
                             int* length);

} // namespace zul
