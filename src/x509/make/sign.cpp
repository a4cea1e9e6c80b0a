#include "x509/make/sign.h"

#include "asn1/asn_build.h"
#include "asn1/asn_encode.h"
#include "asn1/asn_file.h"
#include "frame/file_stream.h"
#include "rsa/rsa_signature.h"
#include "x509/fields/signature_algorithm.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr int kLineLen = 64;

} // namespace

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

int x509_write(const char* path, const asn_Node* object, const char* label, const char* key) {
    return key != nullptr && is_same_file(key, path) ? CREATE_ERROR
                                                     : asn_write_file(path, object, label, kLineLen);
}

} // namespace zul
