#include "x509/fields/signature_algorithm.h"

#include <cstring>

#include "asn1/asn_build.h"
#include "hash/digest.h"

namespace zul {
namespace {

// By digest algorithm.
constexpr const char* kNames[] = {
    "sha1WithRSAEncryption",   "md5WithRSAEncryption",    "md2WithRSAEncryption",
    "sha256WithRSAEncryption", "sha384WithRSAEncryption", "sha512WithRSAEncryption",
    "sha224WithRSAEncryption",
};
constexpr int kCount = sizeof kNames / sizeof kNames[0];

} // namespace

const char* rsa_signature_algorithm(int options) {
    const int digest = options & kDigestAlgorithmMask;
    return digest < kCount ? kNames[digest] : nullptr;
}

int rsa_signature_digest(const char* name) {
    for (int digest = 0; digest < kCount; digest++)
        if (strcmp(name, kNames[digest]) == 0)
            return digest;
    return -1;
}

AsnList rsa_signature_algorithm_identifier(const char* name) {
    return asn_NewSequence(asn_LinkList(asn_NewOid(name), asn_NewNull()));
}

} // namespace zul
