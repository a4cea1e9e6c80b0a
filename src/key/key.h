#pragma once
#include <optional>
#include <string_view>

#include "ec/curve.h"
#include "ec/ed25519.h"
#include "ec/x25519.h"
#include "frame/wipe.h"
#include "rsa/rsa_key.h"

// A key of any kind.
namespace zul {

enum class KeyKind : uint8_t { rsa, rsaPss, p256, p384, p521, ed25519, x25519 };
constexpr size_t kKeyKinds = 7;

// What an id-RSASSA-PSS key with parameters demands of its signatures (RFC 4055, 3.1).
struct PssRules {
    bool restricts = false;
    int digest = 0, mgfDigest = 0;
    uint32_t leastSalt = 0;
};

// Key holds the values of one kind. RSA keys of both kinds are in rsa; the others have a secret of
// secretBytes and a public key of publicBytes (key_kind_info), which a private key has too.
struct Key {
    KeyKind kind = KeyKind::rsa;
    bool isPrivate = false;
    std::optional<RsaKey> rsa;
    PssRules pss;
    Secret<kMaxEcBytes> secret;       // EC: d, big-endian; others as RFC 8032 and RFC 7748 have it
    uint8_t point[2 * kMaxEcBytes]{}; // EC: x || y

    bool is_rsa() const { return kind == KeyKind::rsa || kind == KeyKind::rsaPss; }
    bool is_ec() const { return kind >= KeyKind::p256 && kind <= KeyKind::p521; }
    EcCurve curve() const {
        return static_cast<EcCurve>(static_cast<int>(kind) - static_cast<int>(KeyKind::p256));
    }
};

// KeyKindInfo describes a kind. oid is that of the curve or the algorithm, as content octets.
struct KeyKindInfo {
    const char *name, *algorithm, *curve; // curve is null where there is none
    int bits;                             // 0 for RSA
    size_t secretBytes, publicBytes;      // 0 for RSA
    std::string_view oid;
};
const KeyKindInfo& key_kind_info(KeyKind kind);

// key_make_public computes the public key of a secret that is valid.
void key_make_public(Key& key);

// key_same_public tells whether two keys have the same kind and public key.
[[nodiscard]] bool key_same_public(const Key& a, const Key& b);

} // namespace zul
