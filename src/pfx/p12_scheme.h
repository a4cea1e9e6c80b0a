#pragma once
#include "asn1/asn_node.h"
#include "asn1/oid.h"
#include "frame/memory.h"
#include "pbe/scrypt.h"
#include "pfx/p12_password.h"

// Password-based encryption in PKCS #12 files: the schemes of RFC 7292, appendix C, and PBES2 (RFC 8018).
namespace zul {

constexpr size_t kOidText = 160;

// oid_text gives an OID's name of the table, else its dotted form; an empty text for anything but an OID.
const char* oid_text(const asn_Node* oid, char (&out)[kOidText]);

// P12Scheme describes a scheme with the names of its standard. Texts that do not apply are empty.
struct P12Scheme {
    char name[kOidText]{};
    char kdf[16]{}, prf[sizeof(OidInfo::name)]{}, cipher[sizeof(OidInfo::name)]{};
    uint32_t iterations = 0; // 0: not known
};
P12Scheme p12_describe(const asn_Node* algorithm);

// P12Work bounds the work that all the derivations of a file may ask for together, in iterations. A KiB that
// scrypt fills takes about the time of six iterations of PBKDF2.
class P12Work {
  public:
    [[nodiscard]] int take(uint64_t iterations);           // 0, or OUT_OF_RANGE_ERROR with a text
    [[nodiscard]] int take_scrypt(const ScryptCost& cost); // one that scrypt_check_file allows

  private:
    uint64_t left_ = 100'000'000;
};

// p12_decrypt decrypts and parses data that are one SEQUENCE: 0 or a positive code. What does not decrypt is
// DECRYPT_ERROR without a text, which the caller knows best. The others have one: BAD_FORMAT_ERROR,
// NOT_SUPPORTED_ERROR, OUT_OF_RANGE_ERROR, MEMORY_ERROR.
[[nodiscard]] int p12_decrypt(AsnList& list, const asn_Node* algorithm, const SecretBuffer& data,
                              P12Password& password, P12Work& work);

// The schemes that are written: PBES2 with AES-256-CBC and PBKDF2 with HMAC-SHA-256, or
// pbeWithSHAAnd3-KeyTripleDES-CBC.
enum class P12Strength { modern, legacy };
constexpr uint32_t kP12Iterations = 600'000, kP12LegacyIterations = 2048;

// p12_encrypt gives the AlgorithmIdentifier and the encrypted data, with a random salt and IV.
[[nodiscard]] int p12_encrypt(AsnList& algorithm, SecretBuffer& data, const SecretBuffer& plain,
                              const P12Password& password, P12Strength strength);

} // namespace zul
