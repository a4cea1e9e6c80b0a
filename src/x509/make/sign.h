#pragma once
#include "asn1/asn_node.h"
#include "rsa/rsa_key.h"

namespace zul {

// x509_sign makes the SEQUENCE { toBeSigned, AlgorithmIdentifier, BIT STRING } with an RSA key and a name
// that rsa_signature_algorithm gives: 0 or SIGNATURE_ERROR, without a text.
int x509_sign(AsnList toBeSigned, const char* algorithm, const RsaKey& key, AsnList& object);

// x509_write writes an object to a file as asn_write_file does, but that the file which the argument key
// names (null: none) is CREATE_ERROR too: nobody could make that key again.
int x509_write(const char* path, const asn_Node* object, const char* label, const char* key);

} // namespace zul
