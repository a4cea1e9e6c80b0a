#pragma once
#include "asn1/asn_node.h"
#include "cipher/block_cipher.h"
#include "frame/memory.h"
#include "pbe/pbe.h"

// The parameters of password-based encryption, and the tables of schemes, ciphers and PRFs. Names are those
// of the table of object identifiers.
namespace zul {

enum class PbeKind : uint8_t { pbes1, pkcs12, pbes2 };

constexpr size_t kPbeMaxKey = 128; // that of RC2
constexpr size_t kPbeMaxIv = 16;

struct PbeScheme {
    const char* name;
    PbeKind kind;
    int hashAlg;            // of the key derivation; unused in PBES2
    CipherAlgorithm cipher; // in CBC mode; unused in PBES2
    unsigned rc2Bits;       // effective key bits, for RC2
    uint8_t keyLength = 8;  // unused in PBES2
};

struct PbePrf {
    const char* name;
    int hashAlg;
};

// The tables' entries, null for an unknown name.
const PbeScheme* pbe_scheme(const char* name);
const PbePrf* pbe_prf(const char* name);
// pbe_further_prf is a PRF that PbeReader::anyKey takes beside those of pbe_prf.
const PbePrf* pbe_further_prf(const char* name);
// pbe_prf_of is the PRF with a digest, HMAC-SHA-1 for a digest without one.
const PbePrf* pbe_prf_of(int hashAlg);

struct PbeParams {
    const PbeScheme* scheme = nullptr;
    SecretBuffer password; // the bytes given, or their BMP form in the PKCS #12 schemes
    bool bmp = false;      // the password has been converted
    SecretBuffer salt;
    uint32_t iterations = 1;
    CipherAlgorithm cipher = CipherAlgorithm::tdea;
    const PbePrf* prf = nullptr; // in PBES2
    unsigned rc2Bits = 0;
    size_t keyLength = 0;
    size_t ivLength = 0;
    Secret<kPbeMaxIv> iv; // in PBES2 set before the key is derived, otherwise derived with it
};

// pbe_take_scheme and pbe_take_cipher set the values that a scheme determines, or in PBES2 its cipher.
void pbe_take_scheme(PbeParams& params, const PbeScheme* scheme);
void pbe_take_cipher(PbeParams& params, const BlockCipher& cipher);

// pbe_take_password copies a password: 0, BAD_PARAM_ERROR for null or BAD_LENGTH_ERROR.
[[nodiscard]] int pbe_take_password(PbeParams& params, const char* password);

// pbe_check_iterations compares an iteration count with kMaxForeignIterations: 0, or OUT_OF_RANGE_ERROR with
// a text.
[[nodiscard]] int pbe_check_iterations(uint32_t iterations);

// pbe_read_algorithm reads the AlgorithmIdentifier of a scheme as a PbeReader says: 0, BAD_FORMAT_ERROR,
// OUT_OF_RANGE_ERROR or NOT_SUPPORTED_ERROR, with a text.
[[nodiscard]] int pbe_read_algorithm(PbeParams& params, const asn_Node* algorithmIdentifier,
                                     PbeReader reader);
AsnList pbe_algorithm_list(const PbeParams& params); // the same, written

} // namespace zul
