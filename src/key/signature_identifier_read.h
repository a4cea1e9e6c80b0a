#pragma once
#include "asn1/der_reader.h"
#include "key/signature_choice.h"

namespace zul {

// signature_identifier_read reads an AlgorithmIdentifier of a signature, given as the content of its OBJECT
// IDENTIFIER and its parameters as a whole element, empty if they are missing: 0, or with a text
// NOT_SUPPORTED_ERROR (another algorithm) or BAD_FORMAT_ERROR (parameters that the algorithm does not have).
// The salt of PSS is of a fixed size.
[[nodiscard]] int signature_identifier_read(SignatureAlgorithm& algorithm, DerView oid, DerView parameters);

// signature_fits tells whether a key makes signatures of an algorithm, as the kind of the key and the
// parameters of an RSA-PSS key have it (RFC 4055, 3.3).
[[nodiscard]] bool signature_fits(const SignatureAlgorithm& algorithm, const Key& key);

} // namespace zul
