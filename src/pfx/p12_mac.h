#pragma once
#include "asn1/asn_node.h"
#include "frame/memory.h"
#include "pfx/p12_password.h"
#include "pfx/p12_scheme.h"

// MacData (RFC 7292, 4): HMAC under a key of the PKCS #12 derivation (appendix B), or PBMAC1 (RFC 9579).
namespace zul {

struct P12Mac {
    bool isPbmac1 = false;
    int hashAlg = 0; // of the HMAC, and of the PKCS #12 derivation
    int prf = 0;     // digest of PBKDF2's HMAC, in PBMAC1
    size_t keyLength = 0;
    uint32_t iterations = 1;
    SecretBuffer salt, value;
};

// p12_read_mac: 0 or a positive code with a text: BAD_FORMAT_ERROR, NOT_SUPPORTED_ERROR, OUT_OF_RANGE_ERROR.
[[nodiscard]] int p12_read_mac(P12Mac& mac, const asn_Node* macData);

// p12_check_mac compares the MAC of an AuthenticatedSafe: 0; DECRYPT_ERROR or OUT_OF_RANGE_ERROR with a text.
[[nodiscard]] int p12_check_mac(const P12Mac& mac, const SecretBuffer& safe, P12Password& password,
                                P12Work& work);

enum class P12MacKind { modern, legacy, pbmac1 };
AsnList p12_new_mac(const SecretBuffer& safe, const P12Password& password, P12MacKind kind);

// The name of an HMAC over a digest, as in RFC 8018.
const char* p12_hmac_name(int hashAlg);

} // namespace zul
