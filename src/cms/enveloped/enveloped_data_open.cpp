#include "cms/enveloped/enveloped_data_open.h"

#include <cstring>

#include "asn1/asn_children.h"
#include "asn1/asn_value.h"
#include "cms/enveloped/content_key.h"
#include "cms/enveloped/enveloped_data.h"
#include "cms/message/certificate_identifier.h"
#include "frame/err.h"
#include "frame/text.h"
#include "rsa/rsa_der.h"
#include "rsa/rsa_key_string.h"
#include "x509/fields/subject_public_key.h"
#include "x509/input/x509_input.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr size_t kMaxEncryptedKey = kMaxRsaBits / 8;

// The same text and code for every failed key, whatever the reason.
void cannot_decrypt_key() {
    err_add_text("Unable to decrypt CEK (%02X)\n", static_cast<unsigned>(DECRYPT_ERROR));
}
[[nodiscard]] int no_key() {
    return err_fail(DECRYPT_ERROR, "Could not find a valid Content Encryption Key");
}

// Candidates are the recipients that a key and perhaps a certificate may be of.
class Candidates {
  public:
    // find looks at what is public of every recipient.
    void find(const asn_Node* recipients, const CertificateIdentifiers* certificate, size_t keyBytes) {
        const int limit = certificate == nullptr ? kMaxRecipientsTried : kMaxNamedTried;
        for (AsnChildren children(recipients); !children.at_end() && count_ < limit;)
            look_at(recipient_fields(children.take()), certificate, keyBytes);
    }
    int count() const { return count_; }
    const SecretBuffer& encrypted_key(int n) const { return keys_[n]; }

  private:
    void look_at(const RecipientFields& recipient, const CertificateIdentifiers* certificate,
                 size_t keyBytes) {
        if (recipient.encryptedKey == nullptr ||
            (certificate != nullptr && !certificate->include(identifier_digest(recipient.identifier))))
            return;
        char algorithm[kAlgorithmName];
        algorithm_name(recipient.keyEncryptionAlgorithm, algorithm);
        if (strcmp(algorithm, "rsaEncryption") != 0) {
            err_add_text("Key encryption algorithm '%s' is not supported\n", algorithm);
            return;
        }
        SecretBuffer key;
        if (!asn_GetOctets(recipient.encryptedKey, key))
            return;
        if (key.size() > kMaxEncryptedKey)
            err_add_text("CEK is too long (%d bytes)\n", static_cast<int>(key.size()));
        else if (key.size() != keyBytes)
            cannot_decrypt_key();
        else
            keys_[count_++] = std::move(key);
    }

    SecretBuffer keys_[kMaxRecipientsTried];
    int count_ = 0;
};

[[nodiscard]] int read_cipher(const EnvelopedData& message, ContentCipher& cipher) {
    if (!asn_OidIs(message.content_type(), "data"))
        return err_fail(INVALID_DATA_ERROR, "Invalid content type");
    if (message.content_encryption_algorithm() == nullptr)
        return err_fail(INVALID_DATA_ERROR, "Cannot find Content Encryption Algorithm");
    return cipher.read(message.content_encryption_algorithm());
}

[[nodiscard]] int read_encrypted(EnvelopedData& message, const ContentCipher& cipher, SecretBuffer& content) {
    if (!message.has_content())
        return err_fail(INVALID_DATA_ERROR, "No encrypted content");
    OctetContent& encrypted = message.content();
    const size_t size = encrypted.size();
    if (size > kMaxOpenedContent)
        return err_fail(MSG_TOO_LONG_ERROR, "Encrypted content is too long (max=%u bytes)",
                        static_cast<unsigned>(kMaxOpenedContent));
    if (size == 0 || size % cipher.block_length() != 0)
        return err_fail(DECRYPT_ERROR, "Invalid length of encrypted content");
    content = SecretBuffer(size);
    return encrypted.rewind() && encrypted.read(content.data(), size) == size
               ? 0
               : err_fail(READ_ERROR, "Unable to read enveloped-data file");
}

// decrypt decrypts the content with the key of the first candidate that gives one.
[[nodiscard]] int decrypt(const RsaKey& key, const Candidates& candidates, const ContentCipher& cipher,
                          SecretBuffer& content) {
    const size_t blockLength = cipher.block_length(), end = content.size();
    const bool isOneBlock = end == blockLength;
    const LastBlock last = {isOneBlock ? cipher.iv() : content.data() + end - 2 * blockLength,
                            content.data() + end - blockLength};
    for (int i = 0; i < candidates.count(); i++) {
        const SecretBuffer& encryptedKey = candidates.encrypted_key(i);
        Secret<ContentCipher::kMaxKey> contentKey;
        size_t pad = 0;
        if (recover_content_key(key, encryptedKey.data(), encryptedKey.size(), cipher, last, contentKey,
                                &pad)) {
            const int error =
                cipher.decrypt(contentKey.data(), cipher.iv(), content.data(), end / blockLength);
            content.shrink(end - pad);
            return error;
        }
        cannot_decrypt_key();
    }
    return no_key();
}

[[nodiscard]] int open_message(const char* fileOrText, const CertificateIdentifiers* certificate,
                               const RsaKey& key, SecretBuffer& content) {
    EnvelopedData message;
    if (const int error = message.open(fileOrText))
        return error;
    if (message.recipient_count() == 0)
        return err_fail(DECRYPT_ERROR, "No RecipientInfos.");
    Candidates candidates;
    candidates.find(message.recipients(), certificate, key.bytes());
    if (candidates.count() == 0)
        return no_key();
    ContentCipher cipher;
    if (const int error = read_cipher(message, cipher))
        return error;
    if (const int error = read_encrypted(message, cipher, content))
        return error;
    return decrypt(key, candidates, cipher, content);
}

} // namespace

int open_enveloped_data(const char* fileOrText, const char* cert, const char* privateKey,
                        SecretBuffer& content) {
    RsaKey key;
    if (const int error = rsa_open_private(privateKey, key))
        return err_fail(error, "Invalid Private Key");
    if (is_missing(cert))
        return open_message(fileOrText, nullptr, key, content);
    AsnList certificate;
    if (const int error = x509_read_certificate(cert, certificate))
        return error;
    const CertificateIdentifiers identifiers(certificate_fields(certificate.head()));
    return open_message(fileOrText, &identifiers, key, content);
}

} // namespace zul
