#include "cert/make/object_signer.h"

#include "asn1/asn_build.h"
#include "asn1/asn_encode.h"
#include "frame/err.h"
#include "frame/text.h"
#include "key/key_input.h"
#include "key/signature.h"
#include "key/signature_identifier.h"
#include "zulcore.h"

namespace zul {

int ObjectSigner::open(const char* keyOrFile) {
    const int error = key_input_private(key_, keyOrFile);
    if (error != 0)
        err_add_text("in the signer's key");
    return error;
}

int ObjectSigner::become_like(const Key& publicKey) {
    if (key_.is_rsa() && publicKey.is_rsa()) {
        key_.kind = publicKey.kind;
        key_.pss = publicKey.pss;
    }
    return key_same_public(key_, publicKey)
               ? 0
               : err_fail(NO_MATCH_ERROR, "The issuer's key does not belong to the issuer's certificate");
}

int ObjectSigner::choose(const char* algorithm) {
    const bool isDefaultRsa = is_missing(algorithm) && key_.kind == KeyKind::rsa;
    if (const int error = signature_choose(algorithm_, isDefaultRsa ? "rsa-sha256" : algorithm, key_))
        return error;
    return signature_identifier_list(identifier_, algorithm_, key_);
}

int ObjectSigner::sign(AsnList& object, AsnList toBeSigned) const {
    const SecretBuffer bytes = asn_Encode(toBeSigned);
    if (bytes.empty())
        return err_fail(INVALID_DATA_ERROR, "What is to be signed has no encoding");
    SignatureBytes input(bytes.data(), bytes.size());
    SecretBuffer signature;
    if (const int error = signature_make(signature, key_, algorithm_, input, 0))
        return error;
    object = asn_NewSequence(asn_LinkList(std::move(toBeSigned), identifier(),
                                          asn_NewBitString(0, signature.data(), signature.size())));
    return object ? 0 : err_fail(INVALID_DATA_ERROR, "The signed object has no encoding");
}

} // namespace zul
