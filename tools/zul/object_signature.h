#pragma once
#include "certificates.h"

// Signatures of certificates, requests and revocation lists that the X509_ functions do not verify.
namespace tool {

// has_new_key tells whether a certificate's key is of a kind that X509_VerifyCert does not know.
bool has_new_key(const ObjectArgument& certificate);

// verify_with_new_key checks an object's signature with such a key; SIGNATURE_ERROR for one that is not good.
// name: the object's, for messages.
void verify_with_new_key(const SecretBytes& object, const std::string& name, const ObjectArgument& signer);

// not_signed_by says what a signature that is not good means.
std::string not_signed_by(const ObjectArgument& signer);

} // namespace tool
