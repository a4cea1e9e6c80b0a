#pragma once
#include <string_view>

#include "frame/memory.h"

// Punycode (RFC 3492) of one label, without the prefix "xn--".
namespace zul {

constexpr size_t kMaxLabel = 63; // bytes of a label in the DNS

// punycode_encode writes the form of a label of UTF-8 that is not all ASCII: its length, or 0 if the label is
// not UTF-8 or its form longer than kMaxLabel.
size_t punycode_encode(char out[kMaxLabel], std::string_view label);

// punycode_decode gives the UTF-8 of a form; false for anything that is none.
bool punycode_decode(SecretBuffer& label, std::string_view form);

} // namespace zul
