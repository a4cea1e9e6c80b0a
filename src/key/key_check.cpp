#include "key/key_check.h"

#include <cstring>

#include "frame/err.h"
#include "rsa/rsa_der.h"
#include "rsa/rsa_pairwise.h"
#include "zulcore.h"

namespace zul {
namespace {

bool public_is_valid(const Key& key) {
    if (key.is_ec())
        return ec_operations(key.curve()).point_is_valid(key.point);
    if (key.kind == KeyKind::ed25519)
        return ed25519_key_is_valid(key.point);
    Key any;
    any.kind = KeyKind::x25519;
    any.secret[0] = 8;
    uint8_t shared[kX25519Bytes];
    return x25519(shared, any.secret.data(), key.point); // zero for a point of small order
}

bool secret_is_valid(const Key& key) {
    if (key.is_ec() && !ec_operations(key.curve()).scalar_is_valid(key.secret.data()))
        return false;
    Key again;
    again.kind = key.kind;
    memcpy(again.secret.data(), key.secret.data(), key_kind_info(key.kind).secretBytes);
    key_make_public(again);
    return key_same_public(key, again);
}

} // namespace

int key_check(const Key& key) {
    if (key.is_rsa()) {
        if (!rsa_values_usable(*key.rsa))
            return err_fail(BAD_KEY_ERROR, "The RSA key's values cannot be computed with");
        return key.isPrivate ? rsaPairwiseTest(&*key.rsa) : 0;
    }
    if (!public_is_valid(key))
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
