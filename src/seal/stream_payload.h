#pragma once
#include "seal/age_armour.h"
#include "seal/file_key.h"

// The payload of an age file: a nonce, and chunks of 64 KiB, each with its tag (STREAM: Hoang, Reyhanitabar,
// Rogaway and Vizar, "Online Authenticated-Encryption and its Nonce-Reuse Misuse-Resistance").
namespace zul {

// seal_payload encrypts the input to its end: WRITE_ERROR without a text, the input's error, or a code of the
// random generator. It does not finish the output.
[[nodiscard]] int seal_payload(SealOutput& output, SealInput& input, const FileKey& fileKey);

// open_payload decrypts the input to its end and writes nothing of a chunk whose tag is wrong: DECRYPT_ERROR
// (damaged or cut off) or BAD_FORMAT_ERROR (too short to hold the nonce) with a text, WRITE_ERROR without
// one, or the input's error.
[[nodiscard]] int open_payload(FileWriter& output, SealInput& input, const FileKey& fileKey);

} // namespace zul
