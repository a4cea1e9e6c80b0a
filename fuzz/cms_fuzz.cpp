#include <cstdlib>
#include <cstring>
#include <string>

#include "cms/content/content_output.h"
#include "cms/enveloped/enveloped_data.h"
#include "cms/enveloped/enveloped_data_open.h"
#include "cms/message/message_query.h"
#include "cms/signed/signed_data.h"
#include "cms/signed/signed_data_verify.h"
#include "encode/base64.h"
#include "encode/hex.h"
#include "hash/digest.h"
#include "rsa/rsa_key_string.h"

// Repeated reads, whole or in pieces, give the same. A signature that verifies is of the content that is
// read. Queries agree with the readers. Decrypted content is shorter than the encrypted.

using namespace zul;

static void require(bool claim) {
    if (!claim)
        std::abort();
}

// The key of the seeds.
static const char kPrivateKey[] =
    "MIIBOQIBAAJBAJv3Lnku7415cALaTUQGYiyijKa6fGeiOD805tyHLxL2C38+MzA1TIJprW2sj/ZJiMoHC6e1TOsFrT"
    "pA4YkDLFMCAwEAAQJAKHppnFf7IjufP45KuVnyxuTVHjyOJxNqB7WCKUAIjqHXN5xXoAoVx6az87UosV6jHdAPtaDY"
    "Eil9UPgtozGlsQIhAMhE8j5oOlupuVCRXacmkSMOk5gm+zaBbTJQJiOFWLCrAiEAx14QbS6pWlOphUQVDENlbgS7HZ"
    "EvKFpe6yByFpkaAvkCIFxpPCLB85PSeHmN6loz+KrlkgOWkTrwdBPQWhjv8iHrAiB3j+LcB5rKr9e/MzhINXbzxuSM"
    "c9BLK/82lSu2f7TIyQIgC3kkUpFsg5+Omh3UvSdDQzN7Yl4gX7m8lZj6DBskOGA=";

static std::string content_in(OctetContent& content, size_t part) {
    require(content.rewind());
    std::string all, buffer(part, '\0');
    while (const size_t got = content.read(buffer.data(), part))
        all.append(buffer, 0, got);
    return all;
}

static std::string check_content(OctetContent& content) {
    const std::string whole = content_in(content, content.size() + 1);
    require(whole.size() == content.size() && content_in(content, 3) == whole);
    std::string room(content.size() + 1, '#');
    int length = 0;
    require(content_to_room(content, room.data(), static_cast<int>(room.size()), &length) == 0 &&
            length == static_cast<int>(whole.size()));
    require(room == whole + '\0');
    return whole;
}

using Query = int (*)(const char*, MessageQuery, QueryAnswer&);

// The answer, which has to be the same with little room but for a text that is cut; or a negated code.
static int query(Query ask, const char* text, MessageQuery about) {
    char out[64];
    QueryAnswer whole(nullptr, 0), cut(out, sizeof out - 1);
    const int error = ask(text, about, whole);
    require(ask(text, about, cut) == error);
    require(error != 0 || cut.value() == whole.value() || whole.value() > int{sizeof out - 1});
    return error != 0 ? -error : whole.value();
}

static bool is_digest_of(const std::string& content, const char* hex) {
    for (int algorithm = kDigestSha1; algorithm <= kDigestSha224; algorithm++) {
        uint8_t digest[kMaxDigestSize];
        const int size = hash_bytes(digest, sizeof digest, content.data(),
                                    static_cast<int64_t>(content.size()), algorithm);
        char text[2 * kMaxDigestSize + 1];
        hex_encode_lower(text, sizeof text, digest, static_cast<size_t>(size));
        if (strcmp(text, hex) == 0)
            return true;
    }
    return false;
}

static void check_verified(const char* text, SignedData& message) {
    require(message.require_data() == 0 && message.has_content() && message.signer_count() > 0 &&
            message.certificates().count() > 0);
    SecretBuffer bytes;
    if (signed_data_digest(text, nullptr, bytes) == NOT_SUPPORTED_ERROR)
        return;
    char digest[2 * kMaxDigestSize + 1];
    hex_encode_lower(digest, sizeof digest, bytes.data(), bytes.size());
    require(is_digest_of(content_in(message.content(), 64), digest));
    require(verify_signed_data(text, nullptr, digest) == 0);
    digest[0] = digest[0] == '0' ? '1' : '0';
    require(verify_signed_data(text, nullptr, digest) == SIGNATURE_ERROR);
}

static void check_signed(const char* text) {
    SignedData message;
    const int error = message.open(text);
    require(error == 0 || error == INVALID_DATA_ERROR || error == MSG_TOO_LONG_ERROR);
    if (error != 0) {
        require(verify_signed_data(text, nullptr, nullptr) == error);
        require(query(query_signed_data, text, MessageQuery::version) == -error);
        return;
    }
    const bool isOpen = message.content().is_open();
    const std::string content = isOpen ? check_content(message.content()) : "";
    int count = 0;
    while (count < message.certificates().count())
        message.certificates().certificate(count++);
    require(!message.certificates().certificate(count));
    require(!isOpen || content_in(message.content(), 64) == content);
    for (int n = 0; n <= message.signer_count(); n++) {
        const SignerFields signer = message.signer(n);
        require(n < message.signer_count() || signer.version == nullptr);
        signed_attributes_set(signer.signedAttributes, true);
    }
    CertificateBundle bundle;
    DerSource source;
    require(source.open(text) == 0 && bundle.open(source) == 0 && bundle.count() == count);

    require(query(query_signed_data, text, MessageQuery::countOfCerts) == count);
    require(query(query_signed_data, text, MessageQuery::countOfSigners) == message.signer_count());
    for (const MessageQuery about :
         {MessageQuery::eContentType, MessageQuery::signingTime, MessageQuery::digestAlgorithm,
          MessageQuery::signatureAlgorithm, MessageQuery::messageDigest, MessageQuery::signerInfoVersion})
        query(query_signed_data, text, about);
    if (verify_signed_data(text, nullptr, nullptr) == 0)
        check_verified(text, message);
}

static void check_enveloped(const char* text) {
    EnvelopedData message;
    SecretBuffer content;
    const int error = message.open(text);
    const int opened = open_enveloped_data(text, nullptr, kPrivateKey, content);
    require(error == 0 || (opened == error && content.empty()));
    if (error != 0)
        return;
    const size_t size = message.has_content() ? check_content(message.content()).size() : 0;
    require(query(query_enveloped_data, text, MessageQuery::sizeofEncryptedContent) ==
            static_cast<int>(size));
    require(query(query_enveloped_data, text, MessageQuery::countOfRecipients) == message.recipient_count());
    for (const MessageQuery about :
         {MessageQuery::contentEncryptionAlgorithm, MessageQuery::keyEncryptionAlgorithm,
          MessageQuery::recipientIssuerName, MessageQuery::recipientSerialNumber})
        query(query_enveloped_data, text, about);
    require(opened != 0 || (content.size() < size && size - content.size() <= 16));
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string text(b64_encoded_length(size) + 1, '\0');
    text.resize(b64_encode(text.data(), text.size(), data, size));
    text = "-----BEGIN CMS-----\n" + text + "\n-----END CMS-----\n";
    check_signed(text.c_str());
    check_enveloped(text.c_str());
    return 0;
}
