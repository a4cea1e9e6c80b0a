#pragma once
#include "asn1/asn_scope.h"
#include "hash/digest.h"
#include "x509/verify/signature_check.h"

namespace zul {

class DerSource;

// The checks give 0 if the signature verifies with the key of a SubjectPublicKeyInfo, -1 with "Signature did
// not verify" if it does not, or a positive code with a text (an unsupported key or algorithm, no signature
// at all). A signature with unused bits does not verify.

// verify_object checks a parsed certificate, request or CRL; name is the argument that the error texts show.
[[nodiscard]] int verify_object(const asn_Node* subjectPublicKeyInfo, const asn_Node* object,
                                const char* name);

// verify_source checks the object of a source. It reads a stream, so the object may be longer than memory.
// verify_input takes certificate arguments.
[[nodiscard]] int verify_source(const asn_Node* subjectPublicKeyInfo, DerSource& source, const char* name);
[[nodiscard]] int verify_input(const char* fileOrText, const char* issuerCert);

// SignedPass checks the signature of an object while another reader reads the same source. So the bytes that
// are verified are those that were read, even if the file changes meanwhile. It does not check the DER form
// of BER.
class SignedPass {
  public:
    static constexpr int kOtherForm = -3; // indefinite lengths, or no signed object

    // begin reads what follows the signed part and goes back to the beginning for one pass: 0, kOtherForm
    // without a text, or a result of the checks.
    [[nodiscard]] int begin(const asn_Node* subjectPublicKeyInfo, DerSource& source);
    // end reads what is left of the signed part: 0 or -1, without a text.
    [[nodiscard]] int end();

  private:
    [[nodiscard]] bool read_parts(ByteStream& stream, size_t& offset, size_t& size);

    ByteStream* stream_ = nullptr;
    AsnList algorithm_, value_;
    SignatureCheck check_;
    DigestContext context_;
};

} // namespace zul
