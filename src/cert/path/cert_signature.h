#pragma once
#include "cert/fields/signed_view.h"
#include "cert/path/path_budget.h"
#include "key/signature_choice.h"

// Signatures of certificates, CRLs and OCSP responses (RFC 5280, 4.1.1.2): RSA (PKCS #1 v1.5, PSS), ECDSA,
// Ed25519, and DSA.
namespace zul {

// SignerKey is a public key out of a SubjectPublicKeyInfo.
class SignerKey {
  public:
    SignerKey() = default;
    SignerKey(SignerKey&& other) noexcept;
    SignerKey& operator=(SignerKey&& other) noexcept;
    ~SignerKey();

    // read takes a whole SubjectPublicKeyInfo, which must outlive the key. A DSA key without parameters has
    // those of its issuer's key (RFC 5280, 6.1.4 (f)), null if there is none. 0, or with a text
    // BAD_FORMAT_ERROR, NOT_SUPPORTED_ERROR (algorithm or curve; DSA parameters that nobody gives) or
    // BAD_KEY_ERROR.
    [[nodiscard]] int read(DerView publicKeyInfo, const SignerKey* issuer);
    bool is_read() const { return values_ != nullptr; }

    // check verifies a signature over bytes: 0, or with a text
    // - SIGNATURE_ERROR: it does not verify, or its algorithm is not the key's;
    // - NOT_SUPPORTED_ERROR: another algorithm, or MD2 or MD5, for which anybody finds two messages;
    // - BAD_FORMAT_ERROR: parameters that the algorithm does not have;
    // - OUT_OF_RANGE_ERROR: the budget is spent.
    [[nodiscard]] int check(DerView bytes, const AlgorithmView& algorithm, DerView signature,
                            PathBudget& budget) const;
    // check_object verifies a signed object, whose inner AlgorithmIdentifier has to be the outer one
    // (RFC 5280, 4.1.1.2): SIGNATURE_ERROR if it is another.
    [[nodiscard]] int check_object(const SignedView& object, const AlgorithmView& inner,
                                   PathBudget& budget) const;

    const Key* key() const;                                   // null for a DSA key
    size_t bits() const;                                      // of the modulus, of the curve, of p
    DerView dsa_parameters() const { return dsaParameters_; } // a whole element; empty for other keys

  private:
    struct Values;

    [[nodiscard]] int read_dsa(DerView parameters, DerView bits, const SignerKey* issuer);
    [[nodiscard]] int check_dsa(DerView bytes, const AlgorithmView& algorithm, DerView signature) const;
    int64_t cost() const;

    Values* values_ = nullptr;
    DerView dsaParameters_;
};

// key_inherits_parameters tells whether a SubjectPublicKeyInfo is a DSA key without parameters.
bool key_inherits_parameters(DerView publicKeyInfo);

// signature_uses_sha1 tells whether an algorithm digests with SHA-1, for which two messages can be found.
bool signature_uses_sha1(const AlgorithmView& algorithm);

} // namespace zul
