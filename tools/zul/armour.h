#pragma once
#include <string>

#include "secret_bytes.h"

// Text around bytes.
namespace tool {

// pem_body cuts a text down to the body of its first armour, which it finds as the library does. The
// library's own PEM_FileToBinFile is not used because it appends zeros.
void pem_body(SecretBytes& text, const std::string& name);
// decode_text decodes hex or base64 with the library's decoder; base64 may be base64url (RFC 4648, 5).
SecretBytes decode_text(SecretBytes text, bool isHex, const std::string& name);
// binary_content takes the armour off PEM, decodes base64 and leaves anything else as it is.
SecretBytes binary_content(SecretBytes content, const std::string& name);

} // namespace tool
