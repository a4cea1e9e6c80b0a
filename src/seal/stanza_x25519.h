#pragma once
#include "seal/age_header.h"

// The X25519 stanza of an age file: the file key for one recipient.
namespace zul {

struct X25519Stanza {
    static constexpr std::string_view kType = "X25519";

    uint8_t share[32];
    uint8_t wrapped[kWrappedFileKey];

    // read takes a stanza of that type: false if it is malformed.
    [[nodiscard]] bool read(const AgeStanza& stanza);
};

// AgeIdentity is a private key with its public one.
struct AgeIdentity {
    Secret<32> key;
    uint8_t recipient[32];

    explicit AgeIdentity(const uint8_t* identity);
};

// x25519_stanza_add wraps the file key for a recipient: BAD_KEY_ERROR, without a text, for one of small
// order, or a code of the random generator.
[[nodiscard]] int x25519_stanza_add(AgeHeader& header, const uint8_t* recipient, const FileKey& fileKey);

// x25519_stanza_open unwraps the file key if the stanza is for that identity, and tells in *fits.
// BAD_FORMAT_ERROR: a share of small order.
[[nodiscard]] int x25519_stanza_open(FileKey& fileKey, bool* fits, const X25519Stanza& stanza,
                                     const AgeIdentity& identity);

} // namespace zul
