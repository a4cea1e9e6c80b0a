#include "asn1/asn_children.h"
#include "asn1/asn_value.h"
#include "cms/enveloped/enveloped_data.h"
#include "cms/message/message_query.h"
#include "x509/names/distinguished_name.h"
#include "zulcore.h"

namespace zul {
namespace {

void answer_key_size(const asn_Node* encryptedKey, QueryAnswer& answer) {
    SecretBuffer key;
    asn_GetOctets(encryptedKey, key);
    answer.number(static_cast<int64_t>(key.size()));
}

// The identifier is an IssuerAndSerialNumber, or a subjectKeyIdentifier, which has neither.
AsnChildren issuer_and_serial(const RecipientFields& recipient) {
    const asn_Node* identifier = recipient.identifier;
    return AsnChildren::of_sequence(identifier);
}

[[nodiscard]] int answer_issuer(const RecipientFields& recipient, QueryAnswer& answer) {
    const asn_Node* issuer = issuer_and_serial(recipient).take_sequence();
    if (issuer == nullptr) {
        answer.text("");
        return 0;
    }
    int length = 0;
    const int error = name_print(issuer, answer.out(), answer.room(), ";", ZUL_X509_LATIN1, &length);
    answer.number(length);
    return error;
}

void answer_serial_number(const RecipientFields& recipient, QueryAnswer& answer) {
    AsnChildren fields = issuer_and_serial(recipient);
    fields.take_sequence();
    SecretBuffer number;
    asn_GetPrimitiveData(fields.take_integer(), number);
    answer.hex(number);
}

} // namespace

int query_enveloped_data(const char* fileOrText, MessageQuery query, QueryAnswer& answer) {
    EnvelopedData message;
    if (const int error = message.open(fileOrText))
        return error;
    const RecipientFields recipient = recipient_fields(AsnChildren(message.recipients()).peek());
    switch (query) {
    case MessageQuery::version:
        answer.number(message.version());
        break;
    case MessageQuery::countOfRecipients:
        answer.number(message.recipient_count());
        break;
    case MessageQuery::recipientInfoVersion:
        answer.number(asn_GetInt(recipient.version));
        break;
    case MessageQuery::contentEncryptionAlgorithm:
        answer.algorithm(message.content_encryption_algorithm());
        break;
    case MessageQuery::keyEncryptionAlgorithm:
        answer.algorithm(recipient.keyEncryptionAlgorithm);
        break;
    case MessageQuery::keyEncryptionFlags: // of the parameters; rsaEncryption has none
        answer.number(0);
        break;
    case MessageQuery::sizeofEncryptedKey:
        answer_key_size(recipient.encryptedKey, answer);
        break;
    case MessageQuery::sizeofEncryptedContent:
        answer.number(message.has_content() ? static_cast<int64_t>(message.content().size()) : 0);
        break;
    case MessageQuery::recipientIssuerName:
        return answer_issuer(recipient, answer);
    case MessageQuery::recipientSerialNumber:
        answer_serial_number(recipient, answer);
        break;
    default:
        return BAD_QUERY_ERROR;
    }
    return 0;
}

} // namespace zul
