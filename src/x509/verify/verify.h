#pragma once
#include "asn1/asn_node.h"

namespace zul {

class DerSource;

// The checks give 0 if the signature verifies with the key of a SubjectPublicKeyInfo, -1 with "Signature did
// not verify" if it does not, or a positive code with a text (a key or algorithm that does not serve, no
// signature at all). A signature with unused bits does not verify.

// verify_object checks a parsed certificate, request or CRL; name is the argument that the texts repeat.
int verify_object(const asn_Node* subjectPublicKeyInfo, const asn_Node* object, const char* name);

// verify_source checks the object of a source, which is read as a stream and so may be longer than memory;
// verify_input opens one for an argument.
int verify_source(const asn_Node* subjectPublicKeyInfo, DerSource& source, const char* name);
int verify_input(const asn_Node* subjectPublicKeyInfo, const char* fileOrText);

} // namespace zul
