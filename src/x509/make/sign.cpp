#include "x509/make/sign.h"

#include "asn1/asn_build.h"
#include "asn1/asn_encode.h"
#include "hash/digest.h"
#include "rsa/rsa_signature.h"
#include "x509/fields/signature_algorithm.h"
#include "zulcore.h"

namespace zul {

int x509_sign(AsnList toBeSigned, const char* algorithm, const RsaKey& key, AsnList& object) {
    if (!asn_HasEncoding(toBeSigned.head()))
        return SIGNATURE_ERROR;
    const int digestAlgorithm = rsa_signature_digest(algorithm);
    DigestContext context;
    digest_init(context, digestAlgorithm);
    asn_Digest(toBeSigned.head(), context); // an encoding in memory would double what long names take
    uint8_t digest[kMaxDigestSize];
    const int size = digest_final(context, digest);
    const SecretBuffer signature =
        rsa_make_signature(key, digest, static_cast<size_t>(size), digestAlgorithm, true);
    if (signature.empty())
        return SIGNATURE_ERROR;
    object =
        asn_NewSequence(asn_LinkList(std::move(toBeSigned), rsa_signature_algorithm_identifier(algorithm),
                                     asn_NewBitString(0, signature.data(), signature.size())));
    return object ? 0 : SIGNATURE_ERROR;
}

} // namespace zul
