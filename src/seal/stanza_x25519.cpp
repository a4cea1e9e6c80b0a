#include "seal/stanza_x25519.h"

#include <cstring>

#include "ec/x25519.h"
#include "frame/err.h"
#include "rng/rng.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr std::string_view kInfo = "age-encryption.org/v1/X25519";
constexpr size_t kShareLength = age_base64_length(kX25519Bytes);

void derive_wrap_key(AgeKey& wrapKey, const Secret<kX25519Bytes>& shared, const uint8_t* share,
                     const uint8_t* recipient) {
    uint8_t salt[2 * kX25519Bytes];
    memcpy(salt, share, kX25519Bytes);
    memcpy(salt + kX25519Bytes, recipient, kX25519Bytes);
    age_derive(wrapKey, shared.data(), shared.size(), salt, sizeof salt, kInfo);
}

} // namespace

bool X25519Stanza::read(const AgeStanza& stanza) {
    return stanza.argumentCount == 1 && age_base64_read(share, kX25519Bytes, stanza.arguments) &&
           age_wrapped_key(wrapped, stanza);
}

AgeIdentity::AgeIdentity(const uint8_t* identity) {
    memcpy(key.data(), identity, key.size());
    x25519_public(recipient, identity);
}

int x25519_stanza_add(AgeHeader& header, const uint8_t* recipient, const FileKey& fileKey) {
    Secret<kX25519Bytes> ephemeral, shared;
    if (const int code = rng_bytes(ephemeral.data(), ephemeral.size()))
        return code;
    uint8_t share[kX25519Bytes], wrapped[kWrappedFileKey], point[kX25519Bytes];
    x25519_public(share, ephemeral.data());
    // X25519 ignores this bit (RFC 7748, 5). The holder of the identity derives the key without it.
    memcpy(point, recipient, sizeof point);
    point[kX25519Bytes - 1] &= 0x7F;
    if (!x25519(shared.data(), ephemeral.data(), point))
        return BAD_KEY_ERROR;
    AgeKey wrapKey;
    derive_wrap_key(wrapKey, shared, share, point);
    file_key_wrap(wrapped, fileKey, wrapKey);
    char line[X25519Stanza::kType.size() + 1 + kShareLength + 1];
    memcpy(line, X25519Stanza::kType.data(), X25519Stanza::kType.size());
    line[X25519Stanza::kType.size()] = ' ';
    age_base64_write(line + X25519Stanza::kType.size() + 1, share, sizeof share);
    header.add(line, wrapped);
    return 0;
}

int x25519_stanza_open(FileKey& fileKey, bool* fits, const X25519Stanza& stanza,
                       const AgeIdentity& identity) {
    Secret<kX25519Bytes> shared;
    if (!x25519(shared.data(), identity.key.data(), stanza.share))
        return err_fail(BAD_FORMAT_ERROR, "Malformed header: an X25519 share of small order");
    AgeKey wrapKey;
    derive_wrap_key(wrapKey, shared, stanza.share, identity.recipient);
    *fits = file_key_unwrap(fileKey, stanza.wrapped, wrapKey);
    return 0;
}

} // namespace zul
