#include "key/key_save.h"

#include "asn1/asn_encode.h"
#include "asn1/asn_file.h"
#include "frame/err.h"
#include "frame/text.h"
#include "key/key_der.h"
#include "key/key_encryption.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr int kKnownOptions = ZUL_KEY_FORMAT_PEM | ZUL_KEY_FORMAT_OWN;

const char* own_label(const Key& key) {
    if (key.is_ec())
        return "EC PRIVATE KEY";
    return key.isPrivate ? "RSA PRIVATE KEY" : "RSA PUBLIC KEY";
}

// make gives the structure and its label.
[[nodiscard]] int make(AsnList& list, const char*& label, const Key& key, const char* password,
                       const char* parameters, bool isOwn) {
    if (isOwn) {
        list = key_own_structure(key);
        label = own_label(key);
        return list ? 0 : err_fail(NOT_SUPPORTED_ERROR, "The kind of key has no structure of its own");
    }
    if (!key.isPrivate) {
        list = key_public_info(key);
        label = "PUBLIC KEY";
        return 0;
    }
    list = key_private_info(key);
    label = "PRIVATE KEY";
    if (password == nullptr)
        return 0;
    KeyEncryption encryption;
    if (const int error = key_encryption_read(encryption, parameters))
        return error;
    label = "ENCRYPTED PRIVATE KEY";
    const SecretBuffer plain = asn_Encode(list);
    return key_encrypt(list, plain, password, encryption);
}

} // namespace

int key_save(const char* path, const Key& key, const char* password, const char* parameters, int options) {
    if ((options & ~kKnownOptions) != 0)
        return err_unknown_option();
    const bool isOwn = (options & ZUL_KEY_FORMAT_OWN) != 0;
    if (password != nullptr && (*password == '\0' || !key.isPrivate || isOwn))
        return err_fail(BAD_PARAM_ERROR, "A password is for private keys as PKCS #8, and not empty");
    if (password == nullptr && !is_missing(parameters))
        return err_fail(BAD_PARAM_ERROR, "Parameters without a password");
    AsnList list;
    const char* label = nullptr;
    if (const int error = make(list, label, key, password, parameters, isOwn))
        return error;
    const bool isPem = (options & ZUL_KEY_FORMAT_PEM) != 0;
    const int error = asn_write_file(path, list.head(), isPem ? label : nullptr, kPemLineLen,
                                     {.secret = key.isPrivate, .replaces = true});
    return error == CREATE_ERROR ? err_fail(error, "Cannot create key file '%s'", shown_name(path)) : error;
}

} // namespace zul
