#include "asn1/asn_value.h"
#include "asn1/oid.h"
#include "cms/message/message_query.h"
#include "cms/signed/signed_data.h"
#include "x509/fields/subject_public_key.h"
#include "zulcore.h"

namespace zul {
namespace {

void answer_oid(const asn_Node* oid, QueryAnswer& answer) {
    OidInfo info;
    char dotted[kAlgorithmName] = "";
    if (asn_GetOid(oid, &info) == 0)
        return answer.text(info.name);
    oid_ToDotted(oid, dotted, sizeof dotted - 1);
    answer.text(dotted);
}

void answer_signing_time(const asn_Node* attributes, QueryAnswer& answer) {
    const asn_Node* value;
    char text[kAsnTimeText]; // "yyyy-mm-ddThh:nn:ssZ"
    constexpr size_t kDateEnd = 10, kTimeEnd = 19;
    find_attribute(attributes, "signingTime", &value);
    if (*asn_time_text(value, text) != '\0') {
        text[kDateEnd] = ' ';
        text[kTimeEnd] = '\0';
    }
    answer.text(text);
}

void answer_message_digest(const asn_Node* attributes, QueryAnswer& answer) {
    const asn_Node* value;
    SecretBuffer digest;
    find_attribute(attributes, "messageDigest", &value);
    asn_GetOctets(value, digest);
    answer.hex(digest);
}

} // namespace

int query_signed_data(const char* fileOrText, MessageQuery query, QueryAnswer& answer) {
    SignedData message;
    if (const int error = message.open(fileOrText))
        return error;
    const SignerFields signer = message.signer(0);
    switch (query) {
    case MessageQuery::version:
        answer.number(message.version());
        break;
    case MessageQuery::eContentType:
        answer_oid(message.content_type(), answer);
        break;
    case MessageQuery::hasEContent:
        answer.number(message.has_content() ? 1 : 0);
        break;
    case MessageQuery::countOfCerts:
        answer.number(message.certificates().count());
        break;
    case MessageQuery::countOfSigners:
        answer.number(message.signer_count());
        break;
    case MessageQuery::signerInfoVersion:
        answer.number(asn_GetInt(signer.version));
        break;
    case MessageQuery::hasSignedAttrs:
        answer.number(signer.signedAttributes != nullptr ? 1 : 0);
        break;
    case MessageQuery::signingTime:
        answer_signing_time(signer.signedAttributes, answer);
        break;
    case MessageQuery::digestAlgorithm:
        answer.algorithm(signer.digestAlgorithm);
        break;
    case MessageQuery::signatureAlgorithm:
        answer.algorithm(signer.signatureAlgorithm);
        break;
    case MessageQuery::messageDigest:
        answer_message_digest(signer.signedAttributes, answer);
        break;
    default:
        return BAD_QUERY_ERROR;
    }
    return 0;
}

} // namespace zul
