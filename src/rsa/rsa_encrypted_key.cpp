#include "rsa/rsa_encrypted_key.h"

#include "asn1/asn_encode.h"
#include "frame/debug_output.h"
#include "frame/err.h"
#include "frame/text.h"
#include "rsa/rsa_der.h"
#include "rsa/rsa_files.h"
#include "zulcore.h"

namespace zul {

AsnList rsa_encrypt_key(PbeContext& encryption, const RsaKey& key) {
    const AsnList info = rsa_private_key_info(key);
    if (debugOutput.structures != 0)
        asn_Dump(info.head());
    const SecretBuffer plain = asn_Encode(info);
    return pbe_encrypt(encryption, plain.data(), plain.size());
}

int rsa_save_encrypted_key(const char* path, const RsaKey& key, int iterationCount, const char* password,
                           int options) {
    PbeContext encryption;
    if (const int code = pbe_setup(encryption, password, iterationCount, options))
        return err_fail(code, "Cannot setup PBE");
    const AsnList encrypted = rsa_encrypt_key(encryption, key);
    if (!encrypted)
        return MISC_ERROR;
    const int code = rsa_write_encrypted_key(path, encrypted.head(), options);
    return code == CREATE_ERROR ? err_fail(code, "Cannot create output file '%s'", shown_name(path)) : code;
}

} // namespace zul
