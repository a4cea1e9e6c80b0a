#include "rsa/rsa_make_keys.h"

#include <cstdio>

#include "frame/debug_output.h"
#include "frame/err.h"
#include "frame/fatal_report.h"
#include "platform/platform.h"
#include "rsa/rsa_encrypted_key.h"
#include "rsa/rsa_files.h"
#include "zulcore.h"

namespace zul {

namespace {

constexpr uint32_t kEventPairwiseTest = 0xC0001F52;

[[nodiscard]] int write_private(const char* path, const asn_Node* encrypted, int options) {
    const int code = rsa_write_encrypted_key(path, encrypted, options);
    if (code == 0)
        return 0;
    err_add_text("Unable to create Encrypted Private Key File");
    // Only a file that cannot be created leaves the result to the public key file.
    return code == CREATE_ERROR ? 0 : code;
}

[[nodiscard]] int generate_and_write(const RsaKeyFiles& files, const RsaGeneration& generation) {
    PbeContext encryption;
    if (const int code = pbe_setup(encryption, files.password, files.iterationCount, generation.options)) {
        err_set_text("Cannot setup PBE");
        return code;
    }
    RsaKey key;
    if (const int code = rsaGenerateKeys(&key, generation))
        return err_fail(code, "rsaGenerateKeys failed");
    const AsnList encrypted = rsa_encrypt_key(encryption, key);
    if (!encrypted) {
        if (debugOutput.structures != 0)
            printf("Failed to create EncryptedPrivateKeyInfo. %s.\n", err_text());
        return err_fail(MISC_ERROR, "Unable to create EncryptedPrivateKeyInfo ASN");
    }
    const int privateCode = write_private(files.privateFile, encrypted.head(), generation.options);
    const int publicCode = rsa_write_public_key(files.publicFile, key, generation.options);
    if (publicCode != 0)
        err_add_text("Unable to create Public Key file");
    return publicCode != 0 ? publicCode : privateCode;
}

} // namespace

int rsa_make_keys(const RsaKeyFiles& files, const RsaGeneration& generation) {
    const int code = generate_and_write(files, generation);
    if (code == TEST_FAILED_ERROR)
        fatal_report(static_cast<int>(platform::ReportType::error),
                     "RSA key generation failed Pair-wise Consistency Test", kEventPairwiseTest);
    return code;
}

} // namespace zul
