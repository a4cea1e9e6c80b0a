#pragma once
#include "asn1/asn_node.h"
#include "frame/memory.h"

// Password-based encryption of plain DER (PKCS #5 and PKCS #12 schemes) as EncryptedPrivateKeyInfo
// structures. The DER is not interpreted; decrypted bytes have to be one SEQUENCE.
namespace zul {

struct PbeParams;

// Whose files are read. Those of RSA keys and PKCS #12 have the PRFs of RSA_SaveEncPrivateKey, and what
// stands behind a PRF's name is passed over. Keys of any kind may have HMAC with SHA-224 and SHA-512/256 too,
// and parameters of a PRF have to be NULL or absent.
enum class PbeReader { rsa, anyKey };

// PbeContext owns the parameters of one operation, password and IV among them, and wipes them.
class PbeContext {
  public:
    PbeContext();
    PbeContext(const PbeContext&) = delete;
    PbeContext& operator=(const PbeContext&) = delete;
    ~PbeContext();
    PbeParams& operator*() { return *params_; }

  private:
    PbeParams* params_;
};

// pbe_setup chooses the scheme for encryption; options are those of RSA_SaveEncPrivateKey. 0 or a positive
// code: BAD_PARAM_ERROR (no password), BAD_LENGTH_ERROR, or OUT_OF_RANGE_ERROR with a text (more iterations
// than pbe_decrypt takes).
[[nodiscard]] int pbe_setup(PbeContext& context, const char* password, int iterationCount, int options);

// pbe_encrypt gives an EncryptedPrivateKeyInfo for the plain DER; empty, with a text, if it cannot.
AsnList pbe_encrypt(PbeContext& context, const uint8_t* plain, size_t plainLen);

// pbe_decrypt decrypts an EncryptedPrivateKeyInfo: 0 or a positive code (BAD_FORMAT_ERROR,
// NOT_SUPPORTED_ERROR, OUT_OF_RANGE_ERROR, DECRYPT_ERROR), with a text. After an error plain is empty.
[[nodiscard]] int pbe_decrypt(const asn_Node* encryptedPrivateKeyInfo, const char* password,
                              SecretBuffer& plain, PbeReader reader = PbeReader::rsa);

} // namespace zul
