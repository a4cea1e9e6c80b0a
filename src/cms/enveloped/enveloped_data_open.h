#pragma once
#include "frame/memory.h"

namespace zul {

// open_enveloped_data decrypts the content of a message with a private key string: 0 or a positive code with
// a text. cert (null or empty: none) names the recipient. Each recipient tried costs an RSA
// operation. So only the first kMaxRecipientsTried with an encrypted key of the right length are tried, and
// only the first kMaxNamedTried if cert is given, since a correct message has that recipient once.
constexpr int kMaxRecipientsTried = 100, kMaxNamedTried = 4;
constexpr size_t kMaxOpenedContent = 0x10000000; // bytes, encrypted: all of it is held in memory
[[nodiscard]] int open_enveloped_data(const char* fileOrText, const char* cert, const char* privateKey,
                                      SecretBuffer& content);

} // namespace zul
