#pragma once
#include <string_view>

#include "frame/memory.h"

// Names of the DNS as certificates have them (RFC 5280, 4.2.1.6 and 7.2): ASCII, internationalised labels as
// A-labels (RFC 5890, 5891).
namespace zul {

enum class DomainForm {
    name,    // of a host
    wildcard // its left-most label may be "*" (RFC 9525, 6.3)
};

// domain_to_ascii gives the ASCII form, in lower case, of a name in UTF-8. U-labels become A-labels. The
// checks of RFC 5891 that need no tables of Unicode are made: no upper case beyond ASCII and no symbols in
// the common blocks, no mark in front, no mark behind an ASCII letter, hyphens; A-labels have to decode to
// such a label. 0, or BAD_PARAM_ERROR with a text that says what is wrong.
[[nodiscard]] int domain_to_ascii(SecretBuffer& ascii, std::string_view text, DomainForm form);

// email_to_ascii does the same for the domain of an address and leaves its local part, a dot-string of RFC
// 5321, 4.1.2, as it is. isWide tells that the local part is not all ASCII (RFC 6531, 3.3).
[[nodiscard]] int email_to_ascii(SecretBuffer& address, bool& isWide, std::string_view text);

} // namespace zul
