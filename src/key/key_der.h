#pragma once
#include "asn1/asn_node.h"
#include "frame/memory.h"
#include "key/key.h"

// Keys as DER structures.
namespace zul {

AsnList key_public_info(const Key& key);  // SubjectPublicKeyInfo (RFC 5280, 5480, 8410, 4055)
AsnList key_private_info(const Key& key); // PrivateKeyInfo (RFC 5208), version 0
// key_own_structure gives what the kind has of its own: RSAPrivateKey or RSAPublicKey (RFC 8017) and
// ECPrivateKey (RFC 5915); an empty list for all others.
AsnList key_own_structure(const Key& key);

// What a structure is, by the shape of its outermost elements.
enum class KeyShape {
    none,
    publicInfo,
    privateInfo,
    encrypted,
    rsaPrivate,
    rsaPublic,
    ecPrivate,
    signedObject
};
KeyShape key_shape(const asn_Node* list);

// key_read_structure reads a key from any of them, but encrypted; of a certificate or a request it reads the
// public key. 0, or with a text: BAD_FORMAT_ERROR (no key, or not well made), NOT_SUPPORTED_ERROR (another
// algorithm, curve, or parameters that name none), BAD_KEY_ERROR (values that are no key's).
[[nodiscard]] int key_read_structure(const asn_Node* list, Key& key);

// key_parse parses bytes that are one SEQUENCE and nothing else.
[[nodiscard]] bool key_parse(const uint8_t* bytes, size_t size, AsnList& list);

} // namespace zul
