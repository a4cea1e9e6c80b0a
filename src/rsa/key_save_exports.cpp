#include "asn1/asn_encode.h"
#include "frame/call_frame.h"
#include "frame/debug_output.h"
#include "frame/text.h"
#include "pbe/pbe.h"
#include "rsa/rsa_der.h"
#include "rsa/rsa_files.h"
#include "rsa/rsa_key_string.h"
#include "zulcore.h"

using namespace zul;

namespace {

int faulty_key_data() {
    err_add_text("Internal key data is faulty");
    return INVALID_DATA_ERROR;
}

int save_encrypted(const char* path, const RsaKey& key, int count, const char* password, int options) {
    PbeContext context;
    if (const int error = pbe_setup(context, password, count, options)) {
        err_add_text("Cannot setup PBE");
        return error;
    }
    const AsnList info = rsa_private_key_info(key);
    if (debugOutput.structures != 0)
        asn_Dump(info.head());
    const SecretBuffer plain = asn_Encode(info);
    const AsnList encrypted = pbe_encrypt(context, plain.data(), plain.size());
    if (!encrypted)
        return MISC_ERROR;
    const int error = rsa_write_encrypted_key(path, encrypted.head(), options);
    if (error == CREATE_ERROR)
        err_add_text("Cannot create output file '%s'", shown_name(path));
    return error;
}

} // namespace

int RSA_SavePublicKey(const char* szFileOut, const char* szKeyString, int nOptions) {
    CallFrame frame;
    if (is_missing(szFileOut) || is_missing(szKeyString))
        return frame.status(BAD_PARAM_ERROR);
    RsaKey key;
    if (rsa_open_any(szKeyString, key, nullptr) != 0)
        return frame.status(faulty_key_data());
    return frame.status(rsa_write_public_key(szFileOut, key, nOptions));
}

int RSA_SavePrivateKeyInfo(const char* szFileOut, const char* szKeyString, int nOptions) {
    CallFrame frame;
    if (is_missing(szFileOut) || is_missing(szKeyString))
        return frame.status(BAD_PARAM_ERROR);
    RsaKey key;
    if (rsa_open_private(szKeyString, key) != 0)
        return frame.status(faulty_key_data());
    return frame.status(rsa_write_private_key_info(szFileOut, key, nOptions));
}

int RSA_SaveEncPrivateKey(const char* szFileOut, const char* szKeyString, int nCount, const char* szPassword,
                          int nOptions) {
    CallFrame frame;
    if (is_missing(szFileOut) || is_missing(szKeyString) || szPassword == nullptr)
        return frame.status(BAD_PARAM_ERROR);
    RsaKey key;
    if (rsa_open_private(szKeyString, key) != 0)
        return frame.status(faulty_key_data());
    return frame.status(save_encrypted(szFileOut, key, nCount, szPassword, nOptions));
}
