#pragma once
#include <cstddef>

#include "rsa/rsa_key.h"

// Key arguments of the makers: files, PEM or base64 text, and key strings.
namespace zul {

// argument_opens tells whether an argument is a key or certificate as text, or the name of a file that can be
// opened. Base64 counts as text if it is longer than longestName.
constexpr size_t kLongestKeyName = 64, kLongestCertificateName = 256;
bool argument_opens(const char* fileOrText, size_t longestName);

// Both give 0 or a positive code with a text. A public key may also be the public part of a private key
// string; an encrypted private key may also be a private key string, which needs no password.
[[nodiscard]] int read_public_key(const char* fileOrText, RsaKey& key);
[[nodiscard]] int read_signing_key(const char* fileOrText, const char* password, RsaKey& key);

} // namespace zul
