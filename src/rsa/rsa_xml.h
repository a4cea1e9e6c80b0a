#pragma once
#include "frame/memory.h"
#include "rsa/rsa_key.h"

namespace zul {

// rsa_key_to_xml writes a key as XML; options are those of RSA_ToXMLString. size() does not count the NUL
// that follows.
SecretBuffer rsa_key_to_xml(const RsaKey& key, int options);

// rsa_key_from_xml reads a key from RSAKeyValue or RSAKeyPair: 0 or a positive code, with a text. The key's
// flags tell whether it is private; missing CRT values are then computed.
[[nodiscard]] int rsa_key_from_xml(const char* xml, RsaKey& key);

} // namespace zul
