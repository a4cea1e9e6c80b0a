#pragma once
#include "bignum/mt.h"
#include "rsa/rsa_key.h"

// The key inside a SubjectPublicKeyInfo (RFC 5280, 4.1.2.7), which is the argument info.
namespace zul {

struct asn_Node;

// algorithm_name gives the name of an AlgorithmIdentifier's OID, the dotted form if the table has none, and
// an empty text if there is no OID.
constexpr size_t kAlgorithmName = 256;
const char* algorithm_name(const asn_Node* algorithmIdentifier, char out[kAlgorithmName]);

enum class PublicKeyType : int { other, rsa, dsa };
PublicKeyType public_key_type(const asn_Node* info);
const char* public_key_algorithm(const asn_Node* info, char out[kAlgorithmName]);

bool rsa_public_key_of(const asn_Node* info, RsaKey& key); // false for a key that cannot be used

// DsaPublicKey is a key with its parameters (RFC 3279, 2.3.2).
struct DsaPublicKey {
    BigInt p, q, g, y;
    size_t bits = 0; // of p
};
enum class DsaKeyState : int { good, noParameters, unusable };
DsaKeyState dsa_public_key_of(const asn_Node* info, DsaPublicKey& key);

} // namespace zul
