#include "cms/enveloped/enveloped_data_make.h"

#include "asn1/asn_build.h"
#include "asn1/asn_encode.h"
#include "cms/content/content_info.h"
#include "cms/content/content_input.h"
#include "cms/enveloped/content_cipher.h"
#include "cms/message/certificate_arguments.h"
#include "cms/message/message_file.h"
#include "frame/err.h"
#include "frame/text.h"
#include "rng/rng.h"
#include "rsa/pkcs1_encryption.h"
#include "rsa/rsa_der.h"
#include "rsa/rsa_operation.h"
#include "x509/fields/certificate.h"
#include "x509/fields/subject_public_key.h"
#include "x509/input/x509_input.h"
#include "zulcore.h"

namespace zul {
namespace {

using ContentKey = Secret<ContentCipher::kMaxKey>;

// draw fills out from the random generator.
void draw(uint8_t* out, size_t size, Seed seed = {nullptr, 0}) {
    rng_draw(out, size, seed.bytes, seed.bytes == nullptr ? 0 : seed.size);
}

// encrypt_key gives 0, or a positive code without a text.
[[nodiscard]] int encrypt_key(const RsaKey& recipient, const ContentKey& key, size_t keyLength,
                              SecretBuffer& block) {
    block = SecretBuffer(recipient.bytes());
    size_t blockLen = 0;
    const int code = pkcs1_encrypt_block(block.data(), block.size(), key.data(), keyLength);
    return code != 0 ? code : rsaPublic(&recipient, block.data(), &blockLen, block.data(), block.size());
}

// recipient_info makes a KeyTransRecipientInfo (RFC 5652, 6.2.1); an empty list, with a text, for a
// certificate whose key cannot be used.
AsnList recipient_info(const char* cert, const ContentKey& key, size_t keyLength) {
    AsnList certificate; // empty, and so without fields, if it cannot be read
    static_cast<void>(x509_read_certificate(cert, certificate));
    const CertificateFields fields = certificate_fields(certificate.head());
    AsnList identifier = issuer_and_serial_number(fields);
    RsaKey publicKey;
    if (!identifier || !rsa_public_key_of(fields.subjectPublicKeyInfo, publicKey) ||
        !rsa_exponent_is_safe(publicKey)) {
        err_add_text("Cannot read public key in '%s'", shown_name(cert));
        return {};
    }
    SecretBuffer encryptedKey;
    if (const int code = encrypt_key(publicKey, key, keyLength, encryptedKey)) {
        err_add_text("RSA encryption failed (%d) for '%s'", code, shown_name(cert));
        return {};
    }
    AsnList algorithm = asn_NewSequence(asn_LinkList(asn_NewOid("rsaEncryption"), asn_NewNull()));
    return asn_NewSequence(asn_LinkList(asn_NewInteger(0), std::move(identifier), std::move(algorithm),
                                        asn_NewOctetString(encryptedKey.data(), encryptedKey.size())));
}

// recipient_infos makes the SET OF RecipientInfo, with *count elements in the order of the list, so that the
// caller can tell them apart. The order of DER is not required here.
AsnList recipient_infos(const CertificateArguments& certs, const ContentKey& key, size_t keyLength,
                        int* count) {
    AsnList all;
    *count = 0;
    for (int i = 0; i < certs.count(); i++) {
        AsnList info = recipient_info(certs[i], key, keyLength);
        if (!info)
            continue;
        all = asn_Link(std::move(all), std::move(info));
        ++*count;
    }
    return asn_NewSet(std::move(all));
}

// make_enveloped takes the content padded, in the element that carries it, and encrypts it there.
[[nodiscard]] int make_enveloped(const char* path, AsnList content, ContentCipher& cipher,
                                 const char* certList, Seed seed, int options, int* count) {
    const CertificateArguments certs(certList);
    if (certs.count() == 0)
        return err_fail(BAD_PARAM_ERROR, "Error in certificate list");
    ContentKey key;
    draw(cipher.iv(), cipher.block_length());
    draw(key.data(), cipher.key_length(), seed);
    cipher.finish_key(key.data());
    AsnList recipients = recipient_infos(certs, key, cipher.key_length(), count);

    AsnList algorithm = cipher.algorithm_identifier();
    asn_Node* element = content.head();
    const size_t blocks = element->length / cipher.block_length();
    if (const int error = cipher.encrypt(key.data(), cipher.iv(), element->data, blocks))
        return error;
    AsnList encrypted =
        asn_NewSequence(asn_LinkList(asn_NewOid("data"), std::move(algorithm), std::move(content)));
    const AsnList message = content_info(
        "envelopedData",
        asn_NewSequence(asn_LinkList(asn_NewInteger(0), std::move(recipients), std::move(encrypted))));
    const int fileOptions = *count > 0 ? options : options & ~ZUL_CMS_FORMAT_BASE64;
    const int error = message_write(path, message.head(), fileOptions, nullptr, {});
    return error == CREATE_ERROR ? err_fail(error, "Cannot create file '%s'", shown_name(path)) : error;
}

ContentShape shape_for(const ContentCipher& cipher) {
    return {kAsnContext, 0, cipher.block_length()};
}

} // namespace

int make_enveloped_file(const char* path, const char* contentFile, const char* certList, Seed seed,
                        int options, int* count) {
    ContentCipher cipher;
    cipher.choose(options);
    AsnList content;
    if (const int error = content_from_file(contentFile, shape_for(cipher), content))
        return error;
    return make_enveloped(path, std::move(content), cipher, certList, seed, options, count);
}

int make_enveloped_bytes(const char* path, const void* content, size_t size, const char* certList, Seed seed,
                         int options, int* count) {
    ContentCipher cipher;
    cipher.choose(options);
    AsnList element;
    if (const int error = content_from_bytes(content, size, shape_for(cipher), element))
        return error;
    return make_enveloped(path, std::move(element), cipher, certList, seed, options, count);
}

} // namespace zul
