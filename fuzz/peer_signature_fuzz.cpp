#include <cstring>
#include <openssl/bn.h>
#include <openssl/ec.h>
#include <openssl/ecdsa.h>
#include <openssl/obj_mac.h>

#include "ec/ecdsa.h"
#include "ec/ed25519.h"
#include "ec/x25519.h"
#include "peer_support.h"

// Verification and key agreement agree with libcrypto. For ECDSA the input chooses u1 and u2 of the
// verification, and the signature and digest that have them are computed back: valid signatures of any
// numbers, also such as meet in the multiplication. Then single bits change. For Ed25519 and X25519 the input
// is key and signature.

using namespace zul;
using fuzz::Bytes;
using fuzz::require;

namespace {

using Number = fuzz::Handle<BIGNUM, BN_free>;
using Point = fuzz::Handle<EC_POINT, EC_POINT_free>;

BN_CTX* workspace() {
    static BN_CTX* const made = BN_CTX_new();
    return made;
}

// take gives the next number of the input: one byte chooses its form, a few bytes its value.
struct Source {
    const uint8_t* next;
    const uint8_t* end;

    uint8_t byte() { return next == end ? 0 : *next++; }
    Number number(const BIGNUM* order) {
        const uint8_t form = byte();
        const size_t size = form & 0x3F;
        Bytes bytes(size);
        for (uint8_t& b : bytes)
            b = byte();
        Number made(BN_bin2bn(bytes.data(), static_cast<int>(size), nullptr));
        if ((form & 0x40) != 0) // near the order
            BN_sub(made.get(), order, made.get());
        if ((form & 0x80) != 0) { // half of it, where digits carry
            BN_lshift1(made.get(), made.get());
            BN_add_word(made.get(), 1);
        }
        BN_nnmod(made.get(), made.get(), order, workspace());
        return made;
    }
};

struct PeerCurve {
    EcCurve curve;
    int nid;
};
constexpr PeerCurve kCurves[] = {
    {EcCurve::p256, NID_X9_62_prime256v1}, {EcCurve::p384, NID_secp384r1}, {EcCurve::p521, NID_secp521r1}};

Bytes padded(const BIGNUM* number, size_t size) {
    Bytes out(size);
    require(BN_bn2binpad(number, out.data(), static_cast<int>(size)) >= 0);
    return out;
}

bool peer_verifies(EC_KEY* key, const Bytes& rs, const Bytes& digest, size_t bytes) {
    const fuzz::Handle<ECDSA_SIG, ECDSA_SIG_free> signature(ECDSA_SIG_new());
    ECDSA_SIG_set0(signature.get(), BN_bin2bn(rs.data(), static_cast<int>(bytes), nullptr),
                   BN_bin2bn(rs.data() + bytes, static_cast<int>(bytes), nullptr));
    return ECDSA_do_verify(digest.data(), static_cast<int>(digest.size()), signature.get(), key) == 1;
}

// leftmost shifts a number so that its bits are the first of a digest: those count for libcrypto. The library
// knows no digest of more bits than a curve's order and takes the number as it is.
Bytes leftmost(const Bytes& number, const EcOperations& curve) {
    const Number shifted(BN_bin2bn(number.data(), static_cast<int>(number.size()), nullptr));
    BN_lshift(shifted.get(), shifted.get(), static_cast<int>(8 * curve.bytes - curve.bits));
    return padded(shifted.get(), curve.bytes);
}

void check_ecdsa(const PeerCurve& choice, Source input) {
    const EcOperations& ours = ec_operations(choice.curve);
    const fuzz::Handle<EC_KEY, EC_KEY_free> key(EC_KEY_new_by_curve_name(choice.nid));
    const EC_GROUP* group = EC_KEY_get0_group(key.get());
    const BIGNUM* order = EC_GROUP_get0_order(group);
    const Number d = input.number(order), u1 = input.number(order), u2 = input.number(order);
    const uint8_t change = input.byte();
    if (BN_is_zero(d.get()) || BN_is_zero(u2.get()))
        return;
    const Point q(EC_POINT_new(group)), r(EC_POINT_new(group));
    require(EC_POINT_mul(group, q.get(), d.get(), nullptr, nullptr, workspace()) == 1 &&
            EC_KEY_set_public_key(key.get(), q.get()) == 1);
    Bytes point(1 + 2 * ours.bytes), mine(2 * ours.bytes);
    require(EC_POINT_point2oct(group, q.get(), POINT_CONVERSION_UNCOMPRESSED, point.data(), point.size(),
                               workspace()) == point.size());
    point.erase(point.begin());
    ours.public_key(mine.data(), padded(d.get(), ours.bytes).data());
    require(mine == point && ours.point_is_valid(point.data()));
    Bytes unpacked(2 * ours.bytes);
    require(ours.decompress(unpacked.data(), point.data(), (point.back() & 1) != 0) && unpacked == point);

    // r = (u1 G + u2 Q).x, s = r / u2, e = u1 s
    require(EC_POINT_mul(group, r.get(), u1.get(), q.get(), u2.get(), workspace()) == 1);
    if (EC_POINT_is_at_infinity(group, r.get()))
        return;
    const Number x(BN_new()), s(BN_new()), e(BN_new()), inverse(BN_new());
    require(EC_POINT_get_affine_coordinates(group, r.get(), x.get(), nullptr, workspace()) == 1);
    BN_nnmod(x.get(), x.get(), order, workspace());
    BN_mod_inverse(inverse.get(), u2.get(), order, workspace());
    BN_mod_mul(s.get(), x.get(), inverse.get(), order, workspace());
    BN_mod_mul(e.get(), u1.get(), s.get(), order, workspace());
    if (BN_is_zero(s.get()))
        return;
    Bytes rs = padded(x.get(), ours.bytes);
    const Bytes sBytes = padded(s.get(), ours.bytes);
    rs.insert(rs.end(), sBytes.begin(), sBytes.end());
    Bytes digest = padded(e.get(), ours.bytes);
    const auto verifies = [&] {
        const bool isValid =
            ecdsa_verify(rs.data(), choice.curve, point.data(), digest.data(), digest.size());
        require(peer_verifies(key.get(), rs, leftmost(digest, ours), ours.bytes) == isValid);
        return isValid;
    };
    require(verifies());
    Bytes& changed = (change & 1) != 0 ? rs : digest;
    // Not in the first byte, of which P-521 has one bit.
    changed[1 + input.byte() % (changed.size() - 1)] ^= static_cast<uint8_t>(1 << (change >> 1) % 8);
    verifies();

    Bytes shared(ours.bytes), theirs(ours.bytes);
    if (BN_is_zero(u1.get()))
        return;
    require(EC_POINT_mul(group, r.get(), nullptr, q.get(), u1.get(), workspace()) == 1 &&
            EC_POINT_get_affine_coordinates(group, r.get(), x.get(), nullptr, workspace()) == 1);
    ours.agree(shared.data(), padded(u1.get(), ours.bytes).data(), point.data());
    require(shared == padded(x.get(), ours.bytes));
}

// check_point: any bytes are a point for both or for neither.
void check_point(const PeerCurve& choice, Source input) {
    const EcOperations& ours = ec_operations(choice.curve);
    const fuzz::Handle<EC_GROUP, EC_GROUP_free> group(EC_GROUP_new_by_curve_name(choice.nid));
    Bytes encoded(1 + ours.bytes);
    encoded[0] = static_cast<uint8_t>(2 + (input.byte() & 1));
    for (size_t i = 1; i <= ours.bytes; i++)
        encoded[i] = input.byte();
    const Point point(EC_POINT_new(group.get()));
    const bool theirs =
        EC_POINT_oct2point(group.get(), point.get(), encoded.data(), encoded.size(), workspace()) == 1;
    Bytes mine(2 * ours.bytes), full(1 + 2 * ours.bytes);
    require(ours.decompress(mine.data(), encoded.data() + 1, encoded[0] == 3) == theirs);
    if (theirs) {
        EC_POINT_point2oct(group.get(), point.get(), POINT_CONVERSION_UNCOMPRESSED, full.data(), full.size(),
                           workspace());
        full.erase(full.begin());
        require(full == mine && ours.point_is_valid(mine.data()));
    }
}

void check_ed25519(Source input) {
    uint8_t bytes[kEd25519Key + kEd25519Signature], signature[kEd25519Signature], publicKey[kEd25519Key];
    for (uint8_t& b : bytes)
        b = input.byte();
    const Bytes message(input.next, input.end);
    Ed25519Bytes text(message.data(), message.size());
    ed25519_public(publicKey, bytes);
    require(ed25519_sign(signature, bytes, publicKey, text, Ed25519Form::pure));
    const auto both = [&](const uint8_t* key, const uint8_t* sig) {
        const fuzz::Handle<EVP_PKEY, EVP_PKEY_free> peerKey(
            EVP_PKEY_new_raw_public_key(EVP_PKEY_ED25519, nullptr, key, kEd25519Key));
        const fuzz::Handle<EVP_MD_CTX, EVP_MD_CTX_free> context(EVP_MD_CTX_new());
        require(EVP_DigestVerifyInit(context.get(), nullptr, nullptr, nullptr, peerKey.get()) == 1);
        const bool theirs =
            EVP_DigestVerify(context.get(), sig, kEd25519Signature, message.data(), message.size()) == 1;
        bool unread = false;
        const bool ours = ed25519_verify(sig, key, text, Ed25519Form::pure, &unread);
        // libcrypto also takes keys of small order and encodings above the field's prime.
        require(ours == theirs || (theirs && !ed25519_key_is_valid(key)));
        return ours;
    };
    require(both(publicKey, signature));
    both(bytes, bytes + kEd25519Key);
    both(bytes, signature);
    both(publicKey, bytes + kEd25519Key);
    memcpy(bytes + kEd25519Key, signature, 32); // R of a valid signature, another S
    both(publicKey, bytes + kEd25519Key);
}

void check_x25519(Source input) {
    uint8_t secret[kX25519Bytes], u[kX25519Bytes], shared[kX25519Bytes];
    for (uint8_t& b : secret)
        b = input.byte();
    for (uint8_t& b : u)
        b = input.byte();
    const fuzz::Handle<EVP_PKEY, EVP_PKEY_free> key(
        EVP_PKEY_new_raw_private_key(EVP_PKEY_X25519, nullptr, secret, sizeof secret));
    const fuzz::Handle<EVP_PKEY, EVP_PKEY_free> peer(
        EVP_PKEY_new_raw_public_key(EVP_PKEY_X25519, nullptr, u, sizeof u));
    const fuzz::Handle<EVP_PKEY_CTX, EVP_PKEY_CTX_free> context(EVP_PKEY_CTX_new(key.get(), nullptr));
    uint8_t theirs[kX25519Bytes] = {};
    size_t size = sizeof theirs;
    require(EVP_PKEY_derive_init(context.get()) == 1 &&
            EVP_PKEY_derive_set_peer(context.get(), peer.get()) == 1);
    const bool agreed = EVP_PKEY_derive(context.get(), theirs, &size) == 1;
    require(x25519(shared, secret, u) == agreed);
    require(!agreed || memcmp(shared, theirs, sizeof shared) == 0);
    uint8_t ours[kX25519Bytes], other[kX25519Bytes];
    x25519_public(ours, secret);
    size = sizeof other;
    require(EVP_PKEY_get_raw_public_key(key.get(), other, &size) == 1 &&
            memcmp(ours, other, sizeof ours) == 0);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 2)
        return 0;
    fuzz::hide_features(data[1]);
    const Source input{data + 2, data + size};
    switch (data[0] % 8) {
    case 0:
        check_ed25519(input);
        break;
    case 1:
        check_x25519(input);
        break;
    case 2:
    case 3:
    case 4:
        check_point(kCurves[data[0] % 8 - 2], input);
        break;
    default:
        check_ecdsa(kCurves[data[0] % 8 - 5], input);
    }
    return 0;
}
