#include "key/key_check.h"

#include <cstring>

#include "frame/err.h"
#include "rsa/rsa_der.h"
#include "rsa/rsa_key_check.h"
#include "zulcore.h"

namespace zul {
namespace {

bool secret_is_valid(const Key& key) {
    if (key.is_ec() && !ec_operations(key.curve()).scalar_is_valid(key.secret.data()))
        return false;
    Key again;
    again.kind = key.kind;
    memcpy(again.secret.data(), key.secret.data(), key_kind_info(key.kind).secretBytes);
    key_make_public(again);
    return key_same_public(key, again);
}

[[nodiscard]] int check_rsa(const Key& key) {
    if (!rsa_values_usable(*key.rsa))
        return err_fail(BAD_KEY_ERROR, "The RSA key's values cannot be computed with");
    const int error = key.isPrivate ? rsa_check_private_key(*key.rsa) : 0;
    return error == 0 ? 0 : err_fail(error, "The values of the private RSA key contradict each other");
}

} // namespace

bool key_public_is_valid(const Key& key) {
    if (key.is_ec())
        return ec_operations(key.curve()).point_is_valid(key.point);
    if (key.kind == KeyKind::ed25519)
        return ed25519_key_is_valid(key.point);
    constexpr uint8_t kAnySecret[kX25519Bytes] = {8};
    uint8_t shared[kX25519Bytes];
    return x25519(shared, kAnySecret, key.point); // zero for a point of small order
}

int key_check_exponent(const Key& key) {
    return !key.is_rsa() || rsa_exponent_is_safe(*key.rsa)
               ? 0
               : err_fail(BAD_KEY_ERROR, "The exponent of the RSA key is 1 or even");
}

int key_check(const Key& key) {
    if (key.is_rsa())
        return check_rsa(key);
    if (!key_public_is_valid(key))
        return err_fail(BAD_KEY_ERROR, "Not a valid public key");
    return !key.isPrivate || secret_is_valid(key)
               ? 0
               : err_fail(BAD_KEY_ERROR, "The private key does not belong to the public one");
}

int key_match(const Key& privateKey, const Key& publicKey) {
    if (!key_same_public(privateKey, publicKey))
        return err_fail(NO_MATCH_ERROR, "Keys do not match");
    return key_check(privateKey);
}

int key_agree_size(size_t* size, const Key& privateKey, const Key& publicKey) {
    if (!privateKey.is_ec() && privateKey.kind != KeyKind::x25519)
        return err_fail(BAD_KEY_ERROR, "No key agreement with keys of %s",
                        key_kind_info(privateKey.kind).name);
    if (privateKey.kind != publicKey.kind)
        return err_fail(BAD_KEY_ERROR, "Keys of two kinds: %s and %s", key_kind_info(privateKey.kind).name,
                        key_kind_info(publicKey.kind).name);
    *size = key_kind_info(privateKey.kind).secretBytes;
    return 0;
}

int key_agree(uint8_t* out, const Key& privateKey, const Key& publicKey) {
    if (privateKey.is_ec()) {
        ec_operations(privateKey.curve()).agree(out, privateKey.secret.data(), publicKey.point);
        return 0;
    }
    return x25519(out, privateKey.secret.data(), publicKey.point)
               ? 0
               : err_fail(BAD_KEY_ERROR, "The public key is of small order");
}

} // namespace zul
