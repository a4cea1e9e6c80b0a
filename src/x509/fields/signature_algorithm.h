#pragma once
#include "asn1/asn_node.h"

// The signature algorithms of certificates (RFC 3279, 2.2; RFC 4055, 5).
namespace zul {

// rsa_signature_algorithm gives the name for a digest algorithm's number (the low four bits of an options
// word), null for a digest that no signature algorithm uses.
const char* rsa_signature_algorithm(int options);
// rsa_signature_digest gives the digest algorithm of a name, -1 for any other.
int rsa_signature_digest(const char* name);

AsnList rsa_signature_algorithm_identifier(const char* name); // the OID and NULL

} // namespace zul
