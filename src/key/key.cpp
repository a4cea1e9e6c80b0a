#include "key/key.h"

#include <cstring>

namespace zul {

using namespace std::string_view_literals;

static constexpr KeyKindInfo kKinds[kKeyKinds] = {
    {"rsa", "rsa", nullptr, 0, 0, 0, "\x2A\x86\x48\x86\xF7\x0D\x01\x01\x01"sv},
    {"rsa-pss", "rsa-pss", nullptr, 0, 0, 0, "\x2A\x86\x48\x86\xF7\x0D\x01\x01\x0A"sv},
    {"p-256", "ec", "p-256", 256, 32, 64, "\x2A\x86\x48\xCE\x3D\x03\x01\x07"sv},
    {"p-384", "ec", "p-384", 384, 48, 96, "\x2B\x81\x04\x00\x22"sv},
    {"p-521", "ec", "p-521", 521, 66, 132, "\x2B\x81\x04\x00\x23"sv},
    {"ed25519", "ed25519", "ed25519", 256, kEd25519Key, kEd25519Key, "\x2B\x65\x70"sv},
    {"x25519", "x25519", "x25519", 256, kX25519Bytes, kX25519Bytes, "\x2B\x65\x6E"sv},
};

const KeyKindInfo& key_kind_info(KeyKind kind) {
    return kKinds[static_cast<size_t>(kind)];
}

void key_make_public(Key& key) {
    if (key.is_ec())
        ec_operations(key.curve()).public_key(key.point, key.secret.data());
    else if (key.kind == KeyKind::ed25519)
        ed25519_public(key.point, key.secret.data());
    else if (key.kind == KeyKind::x25519)
        x25519_public(key.point, key.secret.data());
}

bool key_same_public(const Key& a, const Key& b) {
    if (a.kind != b.kind)
        return false;
    if (a.is_rsa())
        return mtIsEqual(a.rsa->n, b.rsa->n) != 0 && mtIsEqual(a.rsa->e, b.rsa->e) != 0;
    return memcmp(a.point, b.point, key_kind_info(a.kind).publicBytes) == 0;
}

} // namespace zul
