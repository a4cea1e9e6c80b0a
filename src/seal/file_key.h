#pragma once
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "frame/wipe.h"

// The keys of an age file (age-encryption.org/v1). A file has a key of its own, which each stanza of its
// header holds wrapped; those of the header's MAC and of the payload are derived from it.
namespace zul {

constexpr size_t kFileKey = 16, kWrappedFileKey = kFileKey + 16, kAgeMac = 32, kPayloadNonce = 16;
using FileKey = Secret<kFileKey>;
using AgeKey = Secret<32>; // of ChaCha20-Poly1305 or HMAC

// age_derive is HKDF-SHA-256.
void age_derive(AgeKey& out, const void* key, size_t keyLen, const void* salt, size_t saltLen,
                std::string_view info);

// The nonce is zero: a wrapping key serves once.
void file_key_wrap(uint8_t* wrapped, const FileKey& fileKey, const AgeKey& wrapKey);
[[nodiscard]] bool file_key_unwrap(FileKey& fileKey, const uint8_t* wrapped, const AgeKey& wrapKey);

} // namespace zul
