// Elliptic curves.
#include "constant_time/constant_time.h"
#include "ec/curve_operations.h"
#include "ec/ecdsa.h"
#include "ec/ed25519.h"
#include "ec/p256_field.h"
#include "ec/x25519.h"
#include "hash/digest.h"

using namespace zul;

namespace constant_time {

namespace {

template<EcCurve curve, int digestAlgorithm>
void ecdsa() {
    Hidden<kMaxEcBytes> d(0);
    uint8_t rs[2 * kMaxEcBytes];
    const uint8_t digest[32] = {1, 2, 3};
    (void)ecdsa_sign(rs, curve, d, digest, sizeof digest, digestAlgorithm, nullptr);
    Hidden<kEcdsaExtra> random;
    (void)ecdsa_sign(rs, curve, d, digest, sizeof digest, digestAlgorithm, random);
}

template<EcCurve curve>
void ecdh() {
    const EcOperations& operations = ec_operations(curve);
    Hidden<kMaxEcBytes> d(0), x;
    uint8_t point[2 * kMaxEcBytes];
    operations.public_key(point, d);
    VALGRIND_MAKE_MEM_DEFINED(point, sizeof point);
    operations.agree(x, d, point);
}

void ed25519() {
    Hidden<kEd25519Key> key;
    uint8_t publicKey[kEd25519Key], signature[kEd25519Signature];
    ed25519_public(publicKey, key);
    for (const Ed25519Form form : {Ed25519Form::pure, Ed25519Form::preHashed}) {
        Hidden<64> text;
        Ed25519Bytes message(text, 64);
        (void)ed25519_sign(signature, key, publicKey, message, form);
    }
}

void x25519_both() {
    Hidden<kX25519Bytes> key, shared;
    uint8_t u[kX25519Bytes];
    x25519_public(u, key);
    (void)x25519(shared, key, u);
}

void scalar_inversion() {
    Limbs<4> secret = {5, 6, 7, 8};
    VALGRIND_MAKE_MEM_UNDEFINED(&secret, sizeof secret);
    modular_inverse(secret, secret, P256Field::kOrder.p, P256Field::kBits);
}

constexpr Case kCases[] = {
    {"ECDSA P-256", ecdsa<EcCurve::p256, kDigestSha256>},
    {"ECDSA P-384", ecdsa<EcCurve::p384, kDigestSha384>},
    {"ECDSA P-521", ecdsa<EcCurve::p521, kDigestSha512>},
    {"ECDH P-256", ecdh<EcCurve::p256>},
    {"ECDH P-384", ecdh<EcCurve::p384>},
    {"ECDH P-521", ecdh<EcCurve::p521>},
    {"Ed25519", ed25519},
    {"X25519", x25519_both},
    {"scalar inversion", scalar_inversion},
};

} // namespace

std::span<const Case> curve_cases() {
    return kCases;
}

} // namespace constant_time
