#include "rsa/rsa_files.h"

#include "asn1/asn_encode.h"
#include "asn1/asn_file.h"
#include "frame/debug_output.h"
#include "frame/err.h"
#include "frame/text.h"
#include "rsa/rsa_der.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr int kLineLen = 60;
constexpr WriteRules kPublic = {.replaces = true}, kPrivate = {.secret = true, .replaces = true};

[[nodiscard]] int write_list(const char* path, const asn_Node* list, const char* label,
                             const WriteRules& rules) {
    if (debugOutput.structures != 0)
        asn_Dump(list);
    return asn_write_file(path, list, label, kLineLen, rules);
}

[[nodiscard]] int write_key_list(const char* path, const AsnList& list, const char* label,
                                 const WriteRules& rules) {
    const int error = write_list(path, list.head(), label, rules);
    if (error == CREATE_ERROR)
        err_add_text("Unable to create key file %s", shown_name(path));
    return error;
}

} // namespace

// The two bits name different structures for public and for private keys, as callers expect.

int rsa_write_public_key(const char* path, const RsaKey& key, int options) {
    if ((options & ZUL_KEY_FORMAT_PEM) != 0)
        return write_key_list(path, rsa_public_key_list(key), "RSA PUBLIC KEY", kPublic);
    if ((options & ZUL_KEY_FORMAT_PEM_ALT) != 0)
        return write_key_list(path, rsa_subject_public_key_info(key), "PUBLIC KEY", kPublic);
    return write_key_list(path, rsa_public_key_list(key), nullptr, kPublic);
}

int rsa_write_private_key_info(const char* path, const RsaKey& key, int options) {
    if ((options & ZUL_KEY_FORMAT_PEM) != 0)
        return write_key_list(path, rsa_private_key_info(key), "PRIVATE KEY", kPrivate);
    if ((options & ZUL_KEY_FORMAT_PEM_ALT) != 0)
        return write_key_list(path, rsa_private_key_list(key), "RSA PRIVATE KEY", kPrivate);
    return write_key_list(path, rsa_private_key_info(key), nullptr, kPrivate);
}

int rsa_write_encrypted_key(const char* path, const asn_Node* encryptedPrivateKeyInfo, int options) {
    const bool pem = (options & (ZUL_KEY_FORMAT_PEM | ZUL_KEY_FORMAT_PEM_ALT)) != 0;
    return write_list(path, encryptedPrivateKeyInfo, pem ? "ENCRYPTED PRIVATE KEY" : nullptr, kPrivate);
}

} // namespace zul
