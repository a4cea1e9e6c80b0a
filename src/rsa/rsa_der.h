#pragma once
#include "asn1/asn_node.h"
#include "rsa/rsa_key.h"

// RSA keys as DER structures.
namespace zul {

constexpr size_t kMaxRsaBits = 65536; // of a modulus read from outside

AsnList rsa_public_key_list(const RsaKey& key);         // RSAPublicKey (RFC 8017, A.1.1)
AsnList rsa_subject_public_key_info(const RsaKey& key); // SubjectPublicKeyInfo (RFC 5280, 4.1.2.7)
AsnList rsa_private_key_list(const RsaKey& key);        // RSAPrivateKey (RFC 8017, A.1.2)
AsnList rsa_private_key_info(const RsaKey& key);        // PrivateKeyInfo (RFC 5208, 5)

// Readers fill a key from a list whose first node is the structure's own: true, or false with a text where
// there is one to say. They refuse values that cannot be computed with (rsa_values_usable).
bool rsa_read_public_key(const asn_Node* list, RsaKey& key);
bool rsa_read_subject_public_key_info(const asn_Node* list, RsaKey& key);
bool rsa_read_private_key(const asn_Node* list, RsaKey& key); // version 0: two primes
bool rsa_read_private_key_info(const asn_Node* list, RsaKey& key);

// rsa_values_usable tells whether the values of the parts that flags names can be computed with: an odd
// modulus from 3 to kMaxRsaBits bits, e and d from 1 to below it, p and q odd and above 1 with the modulus as
// their product, dP, dQ and qInv in their ranges and qInv * q = 1 mod p. Whether e and d belong together is
// not asked, nor whether p and q are primes.
bool rsa_values_usable(const RsaKey& key);

} // namespace zul
