#pragma once
#include "seal/age_header.h"

// The scrypt stanza of an age file: the file key under a password.
namespace zul {

constexpr int kScryptLogN = 18, kMostScryptLogN = 22; // that is written, and that is read at most

struct ScryptStanza {
    static constexpr std::string_view kType = "scrypt";

    uint8_t salt[16];
    int logN;
    uint8_t wrapped[kWrappedFileKey];

    // read takes a stanza of that type: BAD_FORMAT_ERROR or, for a work factor above kMostScryptLogN,
    // OUT_OF_RANGE_ERROR, with a text.
    [[nodiscard]] int read(const AgeStanza& stanza);
};

// scrypt_stanza_add wraps the file key under a password, with a work factor of 2^logN: 0, MEMORY_ERROR or a
// code of the random generator.
[[nodiscard]] int scrypt_stanza_add(AgeHeader& header, std::string_view password, const FileKey& fileKey,
                                    int logN = kScryptLogN);

// scrypt_stanza_open unwraps the file key: DECRYPT_ERROR for a wrong password, or MEMORY_ERROR.
[[nodiscard]] int scrypt_stanza_open(FileKey& fileKey, const ScryptStanza& stanza, std::string_view password);

} // namespace zul
