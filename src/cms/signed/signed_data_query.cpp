#include <algorithm>
#include <climits>

#include "asn1/asn_value.h"
#include "asn1/oid.h"
#include "cms/message/message_query.h"
#include "cms/signed/signed_data.h"
#include "encode/hex.h"
#include "frame/text.h"
#include "x509/fields/subject_public_key.h"
#include "zulcore.h"

namespace zul {
namespace {

int number_result(int64_t number) {
    return static_cast<int>(std::clamp<int64_t>(number, 0, INT_MAX));
}

int oid_result(char* out, int room, const asn_Node* oid) {
    OidInfo info;
    if (asn_GetOid(oid, &info) == 0)
        return text_result(out, room, info.name);
    char dotted[kAlgorithmName] = "";
    oid_ToDotted(oid, dotted, sizeof dotted - 1);
    return text_result(out, room, dotted);
}

int algorithm_result(char* out, int room, const asn_Node* algorithm) {
    char name[kAlgorithmName];
    return text_result(out, room, algorithm_name(algorithm, name));
}

int time_result(char* out, int room, const asn_Node* attributes) {
    const asn_Node* value;
    char text[kAsnTimeText]; // "yyyy-mm-ddThh:nn:ssZ"
    constexpr size_t kDateEnd = 10, kTimeEnd = 19;
    find_attribute(attributes, "signingTime", &value);
    if (*asn_time_text(value, text) != '\0') {
        text[kDateEnd] = ' ';
        text[kTimeEnd] = '\0';
    }
    return text_result(out, room, text);
}

int digest_result_of(char* out, int room, const asn_Node* attributes) {
    const asn_Node* value;
    SecretBuffer digest;
    find_attribute(attributes, "messageDigest", &value);
    asn_GetOctets(value, digest);
    SecretBuffer text(2 * digest.size() + 1);
    hex_encode_lower(text.text(), text.size(), digest.data(), digest.size());
    return text_result(out, room, text.text());
}

} // namespace

int query_signed_data(char* out, int room, const char* fileOrText, MessageQuery query, int index) {
    SignedData message;
    if (const int error = message.open(fileOrText))
        return -error;
    const SignerFields signer = message.signer(index);
    switch (query) {
    case MessageQuery::version:
        return number_result(message.version());
    case MessageQuery::eContentType:
        return oid_result(out, room, message.content_type());
    case MessageQuery::hasEContent:
        return message.has_content() ? 1 : 0;
    case MessageQuery::countOfCerts:
        return message.certificates().count();
    case MessageQuery::countOfSigners:
        return message.signer_count();
    case MessageQuery::signerInfoVersion:
        return number_result(asn_GetInt(signer.version));
    case MessageQuery::hasSignedAttrs:
        return signer.signedAttributes != nullptr ? 1 : 0;
    case MessageQuery::signingTime:
        return time_result(out, room, signer.signedAttributes);
    case MessageQuery::digestAlgorithm:
        return algorithm_result(out, room, signer.digestAlgorithm);
    case MessageQuery::signatureAlgorithm:
        return algorithm_result(out, room, signer.signatureAlgorithm);
    case MessageQuery::messageDigest:
        return digest_result_of(out, room, signer.signedAttributes);
    default:
        return -BAD_QUERY_ERROR;
    }
}

} // namespace zul
