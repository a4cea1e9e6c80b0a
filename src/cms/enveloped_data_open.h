#pragma once
#include "frame/memory.h"

namespace zul {

// open_enveloped_data decrypts the content of a message with a private key string: 0 or a positive code with
// a text. cert (null or empty: none) names the recipient. Each recipient that could be meant costs an RSA
// operation, so that of any number the first kMaxRecipientsTried whose key has the length are tried.
constexpr int kMaxRecipientsTried = 100;
int open_enveloped_data(const char* fileOrText, const char* cert, const char* privateKey,
                        SecretBuffer& content);

} // namespace zul
