#include "x509/fields/signature_algorithm.h"

#include <cstring>

#include "asn1/asn_build.h"
#include "hash/digest.h"

namespace zul {

const char* rsa_signature_algorithm(int options) {
    const DigestDescriptor* digest = digest_find(options & kDigestAlgorithmMask);
    return digest == nullptr ? nullptr : digest->rsaSignature;
}

int rsa_signature_digest(const char* name) {
    for (int number = 0; const DigestDescriptor* digest = digest_find(number); number++)
        if (digest->rsaSignature != nullptr && strcmp(name, digest->rsaSignature) == 0)
            return number;
    return -1;
}

AsnList rsa_signature_algorithm_identifier(const char* name) {
    return asn_NewSequence(asn_LinkList(asn_NewOid(name), asn_NewNull()));
}

} // namespace zul
