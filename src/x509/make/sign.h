#pragma once
#include "asn1/asn_node.h"
#include "rsa/rsa_key.h"

namespace zul {

// x509_sign makes the SEQUENCE { toBeSigned, AlgorithmIdentifier, BIT STRING } with an RSA key: 0, or
// SIGNATURE_ERROR without a text. algorithm is a name that rsa_signature_algorithm gives.
[[nodiscard]] int x509_sign(AsnList toBeSigned, const char* algorithm, const RsaKey& key, AsnList& object);

} // namespace zul
