#pragma once
#include <string_view>

#include "frame/memory.h"

// PEM files of keys (RFC 7468), with header lines too (RFC 1421).
namespace zul {

struct PemBlock {
    std::string_view label, cipher, iv, body; // cipher and iv are those of DEK-Info, empty without
};

// pem_find_key finds the block of a text that a key is to be read from: the first private key, or else the
// first that is no parameters. 0, or INVALID_DATA_ERROR with a text.
[[nodiscard]] int pem_find_key(std::string_view text, PemBlock& block);

// pem_decrypt_body decrypts decoded data as DEK-Info says: 0, NOT_SUPPORTED_ERROR or DECRYPT_ERROR, with a
// text.
[[nodiscard]] int pem_decrypt_body(SecretBuffer& data, const PemBlock& block, const char* password);

} // namespace zul
