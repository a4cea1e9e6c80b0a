#include "rsa/rsa_key_input.h"

#include "asn1/asn_encode.h"
#include "asn1/asn_input.h"
#include "asn1/asn_parse.h"
#include "frame/debug_output.h"
#include "frame/err.h"
#include "frame/memory.h"
#include "pbe/pbe.h"
#include "rsa/rsa_der.h"
#include "zulcore.h"

namespace zul {
namespace {

// The longest key has about 50,000 bytes.
constexpr size_t kMaxInput = 1 << 22;

[[nodiscard]] int read_list(const char* fileOrText, AsnList& list) {
    const int error = asn_read_input(fileOrText, list, kMaxInput);
    if (error == 0 && debugOutput.structures != 0)
        asn_Dump(list.head());
    return error;
}

[[nodiscard]] int decrypt(const asn_Node* encrypted, const char* password, RsaKey& key) {
    SecretBuffer plain;
    if (pbe_decrypt(encrypted, password, plain) != 0)
        return DECRYPT_ERROR;
    const AsnList list = asn_ParseBytes(plain.data(), plain.size());
    if (list && debugOutput.structures != 0)
        asn_Dump(list.head());
    if (list && rsa_read_private_key_info(list.head(), key))
        return 0;
    return err_fail(DECRYPT_ERROR, "Not valid PrivateKeyInfo data");
}

} // namespace

int rsa_input_public_key(const char* fileOrText, RsaKey& key) {
    AsnList list;
    if (const int error = read_list(fileOrText, list))
        return error;
    if (rsa_read_public_key(list.head(), key) || rsa_read_subject_public_key_info(list.head(), key))
        return 0;
    return err_fail(BAD_FORMAT_ERROR, "Not an RSA public key");
}

int rsa_input_private_key(const char* fileOrText, RsaKey& key) {
    AsnList list;
    if (const int error = read_list(fileOrText, list))
        return error;
    if (rsa_read_private_key_info(list.head(), key) || rsa_read_private_key(list.head(), key))
        return 0;
    return err_fail(BAD_FORMAT_ERROR, "Not a valid private key info file");
}

int rsa_input_encrypted_key(const char* fileOrText, const char* password, RsaKey& key) {
    AsnList list;
    if (const int error = read_list(fileOrText, list))
        return error;
    const int error = decrypt(list.head(), password, key);
    return error == 0 ? 0 : err_fail(error, "Could not decrypt key");
}

} // namespace zul
