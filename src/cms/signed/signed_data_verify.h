#pragma once
#include "frame/memory.h"

namespace zul {

// Both give 0 or a positive code with a text. cert and hexDigest may be null or empty.

// verify_signed_data checks the signature of a message.
[[nodiscard]] int verify_signed_data(const char* fileOrText, const char* cert, const char* hexDigest);

// signed_data_digest gives the digest that was signed. That of a message with signed attributes is their
// messageDigest, once their signature has been checked.
[[nodiscard]] int signed_data_digest(const char* fileOrText, const char* cert, SecretBuffer& digest);

} // namespace zul
