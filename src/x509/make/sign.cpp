#include "x509/make/sign.h"

#include "asn1/asn_build.h"
#include "asn1/asn_encode.h"
#include "rsa/rsa_signature.h"
#include "x509/fields/signature_algorithm.h"
#include "zulcore.h"

namespace zul {

int x509_sign(AsnList toBeSigned, const char* algorithm, const RsaKey& key, AsnList& object) {
    const SecretBuffer message = asn_Encode(toBeSigned);
    if (message.empty())
        return SIGNATURE_ERROR;
    const SecretBuffer signature =
        rsa_make_signature(key, message.data(), message.size(), rsa_signature_digest(algorithm), false);
    if (signature.empty())
        return SIGNATURE_ERROR;
    object =
        asn_NewSequence(asn_LinkList(std::move(toBeSigned), rsa_signature_algorithm_identifier(algorithm),
                                     asn_NewBitString(0, signature.data(), signature.size())));
    return object ? 0 : SIGNATURE_ERROR;
}

} // namespace zul
