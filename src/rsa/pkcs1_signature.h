#pragma once
#include <cstddef>
#include <cstdint>

#include "rsa/digest_info.h"

// The signature block of PKCS #1 v1.5 (block type 1). Lengths are below 2^31.
namespace zul {

// pkcs1_sign_block fills out with the DigestInfo of a message, or of the message taken as the digest itself:
// 0, BAD_FLAG_ERROR (no such digest), BAD_LENGTH_ERROR with a text (another length than the digest's) or
// SHORT_BUF_ERROR.
[[nodiscard]] int pkcs1_sign_block(uint8_t* out, size_t outLen, const uint8_t* message, size_t length,
                                   int algorithm, bool isDigest);

// pkcs1_open_block finds where the DigestInfo begins, which ends the block, and its prefix: 0 or
// DECRYPT_ERROR.
[[nodiscard]] int pkcs1_open_block(const uint8_t* block, size_t length, size_t* start,
                                   const DigestInfoPrefix** prefix);

} // namespace zul
