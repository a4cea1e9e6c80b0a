#pragma once
#include "frame/memory.h"

namespace zul {

// open_enveloped_data decrypts the content of a message with a private key string: 0 or a positive code with
// a text. cert (null or empty: none) names the recipient. Each recipient that could be meant costs an RSA
// operation, so that of any number the first kMaxRecipientsTried whose key has the length are tried, and
// where one is named, who stands in an honest message once, the first kMaxNamedTried.
constexpr int kMaxRecipientsTried = 100, kMaxNamedTried = 4;
constexpr size_t kMaxOpenedContent = 0x10000000; // bytes, encrypted: all of it is held in memory
[[nodiscard]] int open_enveloped_data(const char* fileOrText, const char* cert, const char* privateKey,
                                      SecretBuffer& content);

} // namespace zul
