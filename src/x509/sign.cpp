#include "x509/sign.h"

#include <cstring>

#include "asn1/asn_build.h"
#include "asn1/asn_encode.h"
#include "asn1/asn_file.h"
#include "frame/file_stream.h"
#include "rsa/pkcs1_signature.h"
#include "rsa/rsa_operation.h"
#include "x509/signature_algorithm.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr int kLineLen = 64;

// make_signature gives an empty buffer if the key cannot sign. A signature that the public part does not
// undo is never given away: one that went wrong in one of the two primes would tell the key, and one of a
// damaged key serves nobody.
SecretBuffer make_signature(const SecretBuffer& message, int digest, const RsaKey& key) {
    SecretBuffer block(key.bytes()), signature(key.bytes()), undone(key.bytes());
    size_t length = 0;
    if (pkcs1_sign_block(block.data(), block.size(), message.data(), message.size(), digest, false) != 0 ||
        rsaPrivate(&key, signature.data(), &length, block.data(), block.size()) != 0 ||
        rsaPublic(&key, undone.data(), &length, signature.data(), signature.size()) != 0 ||
        memcmp(undone.data(), block.data(), block.size()) != 0)
        return {};
    return signature;
}

bool names_file(const char* argument, const char* path) {
    if (!platform::file_is_regular(argument)) // a pipe would wait for its other end
        return false;
    const File file(argument, platform::OpenMode::read);
    return file.is_open() && platform::file_is(file.handle(), path);
}

} // namespace

int x509_sign(AsnList toBeSigned, const char* algorithm, const RsaKey& key, AsnList& object) {
    const SecretBuffer message = asn_Encode(toBeSigned);
    if (message.empty())
        return SIGNATURE_ERROR;
    const SecretBuffer signature = make_signature(message, rsa_signature_digest(algorithm), key);
    if (signature.empty())
        return SIGNATURE_ERROR;
    object =
        asn_NewSequence(asn_LinkList(std::move(toBeSigned), rsa_signature_algorithm_identifier(algorithm),
                                     asn_NewBitString(0, signature.data(), signature.size())));
    return object ? 0 : SIGNATURE_ERROR;
}

int x509_write(const char* path, const asn_Node* object, const char* label, const char* key) {
    return key != nullptr && names_file(key, path) ? CREATE_ERROR
                                                   : asn_write_file(path, object, label, kLineLen);
}

} // namespace zul
