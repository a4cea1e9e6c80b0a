#include <algorithm>
#include <climits>

#include "asn1/asn_children.h"
#include "asn1/asn_value.h"
#include "cms/enveloped/enveloped_data.h"
#include "cms/message/message_query.h"
#include "encode/hex.h"
#include "frame/text.h"
#include "x509/fields/subject_public_key.h"
#include "x509/names/distinguished_name.h"
#include "zulcore.h"

namespace zul {
namespace {

int number_result(int64_t number) {
    return static_cast<int>(std::clamp<int64_t>(number, 0, INT_MAX));
}

int size_result(size_t size) {
    return static_cast<int>(std::min<size_t>(size, INT_MAX));
}

int key_size(const asn_Node* encryptedKey) {
    SecretBuffer key;
    asn_GetOctets(encryptedKey, key);
    return size_result(key.size());
}

int algorithm_result(char* out, int room, const asn_Node* algorithm) {
    char name[kAlgorithmName];
    return text_result(out, room, algorithm_name(algorithm, name));
}

// The identifier is an IssuerAndSerialNumber, or a subjectKeyIdentifier, which has neither.
AsnChildren issuer_and_serial(const RecipientFields& recipient) {
    const asn_Node* identifier = recipient.identifier;
    return AsnChildren(asn_is(identifier, kAsnConstructed, kAsnSequence) ? identifier : nullptr);
}

int issuer_result(char* out, int room, const RecipientFields& recipient) {
    const asn_Node* issuer = issuer_and_serial(recipient).take_sequence();
    return issuer == nullptr ? text_result(out, room, "")
                             : name_print(issuer, out, room, ";", ZUL_X509_LATIN1);
}

int serial_number_result(char* out, int room, const RecipientFields& recipient) {
    AsnChildren fields = issuer_and_serial(recipient);
    fields.take_sequence();
    SecretBuffer number;
    asn_GetPrimitiveData(fields.take_integer(), number);
    SecretBuffer text(2 * number.size() + 1);
    hex_encode_lower(text.text(), text.size(), number.data(), number.size());
    return text_result(out, room, text.text());
}

} // namespace

int query_enveloped_data(char* out, int room, const char* fileOrText, MessageQuery query, int index) {
    EnvelopedData message;
    if (const int error = message.open(fileOrText))
        return -error;
    const RecipientFields recipient = message.recipient(index);
    switch (query) {
    case MessageQuery::version:
        return number_result(message.version());
    case MessageQuery::countOfRecipients:
        return message.recipient_count();
    case MessageQuery::recipientInfoVersion:
        return number_result(asn_GetInt(recipient.version));
    case MessageQuery::contentEncryptionAlgorithm:
        return algorithm_result(out, room, message.content_encryption_algorithm());
    case MessageQuery::keyEncryptionAlgorithm:
        return algorithm_result(out, room, recipient.keyEncryptionAlgorithm);
    case MessageQuery::keyEncryptionFlags: // those of the parameters, which rsaEncryption has none of
        return 0;
    case MessageQuery::sizeofEncryptedKey:
        return key_size(recipient.encryptedKey);
    case MessageQuery::sizeofEncryptedContent:
        return message.has_content() ? size_result(message.content().size()) : 0;
    case MessageQuery::recipientIssuerName:
        return issuer_result(out, room, recipient);
    case MessageQuery::recipientSerialNumber:
        return serial_number_result(out, room, recipient);
    default:
        return -BAD_QUERY_ERROR;
    }
}

} // namespace zul
