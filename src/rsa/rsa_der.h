#pragma once
#include "asn1/asn_node.h"
#include "asn1/der_reader.h"
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

// The same from DER that holds nothing else, as key strings do, without a list.
bool rsa_read_public_key(DerView der, RsaKey& key);
bool rsa_read_private_key(DerView der, RsaKey& key);

// Readers for keys of any kind. They take exactly the elements of RFC 8017, and tell why they refuse:
// otherPrimes is version 1, unusable is rsa_values_usable. A public key has to be DER; in a private one an
// INTEGER may lack its sign byte.
enum class RsaStructure { good, malformed, otherPrimes, unusable };
[[nodiscard]] RsaStructure rsa_read_public_exactly(const asn_Node* list, RsaKey& key);
[[nodiscard]] RsaStructure rsa_read_private_exactly(const asn_Node* list, RsaKey& key);

// rsa_values_usable tells whether a key can be computed with:
// - n is odd, from 3 up, and has at most kMaxRsaBits bits; e is from 1 to n - 1;
// - in a public key e has at most 64 bits if n has more than 4,096: such keys come from strangers, and one
//   operation with a longer exponent takes seconds;
// - in a private key d is from 1 to n - 1;
// - with CRT values p and q are odd and above 1, p * q = n, dP < p, dQ < q, qInv < p and qInv * q = 1 mod p.
// It does not check that e, d, dP and dQ belong together, nor that p and q are primes.
bool rsa_values_usable(const RsaKey& key);

// rsa_exponent_is_safe tells whether e can belong to a private key: it is odd and from 3 up. With e = 1
// anybody makes signatures, and encrypted data stay as they are. Keys of certificates have to pass.
bool rsa_exponent_is_safe(const RsaKey& key);

} // namespace zul
