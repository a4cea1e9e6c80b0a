#pragma once
#include "asn1/asn_node.h"
#include "frame/memory.h"

// SignerInfo and its signed attributes (RFC 5652, 5.3 and 11).
namespace zul {

// SignerFields point into the list of the SignerInfo; a field that is missing is null.
struct SignerFields {
    const asn_Node* version = nullptr;
    const asn_Node* identifier = nullptr; // SEQUENCE, or [0]
    const asn_Node* digestAlgorithm = nullptr;
    const asn_Node* signedAttributes = nullptr; // [0]
    const asn_Node* signatureAlgorithm = nullptr;
    const asn_Node* signature = nullptr; // OCTET STRING
};
SignerFields signer_fields(const asn_Node* signerInfo);

// find_attribute counts the values that all signed attributes of a type (a name of the OID table) have, and
// gives the first (null if there is none). Two attributes count as two values even if they have fewer.
int find_attribute(const asn_Node* signedAttributes, const char* type, const asn_Node** value);

// signed_attributes_set gives what is digested: the attributes as SET OF, with their bytes as they stand, or
// in DER (lengths and order) if der is set. Empty if that cannot be, and for a tag of more than one octet.
SecretBuffer signed_attributes_set(const asn_Node* signedAttributes, bool der);

// digest_algorithm_of gives the number of the digest that an AlgorithmIdentifier names, or -1.
int digest_algorithm_of(const asn_Node* algorithmIdentifier);

} // namespace zul
