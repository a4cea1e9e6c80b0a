#include "cms/message/message_query.h"

#include <algorithm>
#include <climits>
#include <string_view>

#include "encode/hex.h"
#include "frame/text.h"
#include "x509/fields/subject_public_key.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr int kNumber = 1, kText = 2; // as ZUL_QUERY_GETTYPE gives them

struct Keyword {
    std::string_view word;
    MessageQuery query;
    int type;
};

constexpr Keyword kKeywords[] = {
    {"Version", MessageQuery::version, kNumber},
    {"eContentType", MessageQuery::eContentType, kText},
    {"HASeContent", MessageQuery::hasEContent, kNumber},
    {"CountOfCerts", MessageQuery::countOfCerts, kNumber},
    {"CountOfCertificates", MessageQuery::countOfCerts, kNumber},
    {"CountOfSigners", MessageQuery::countOfSigners, kNumber},
    {"CountOfSignerInfos", MessageQuery::countOfSigners, kNumber},
    {"signerInfoVersion", MessageQuery::signerInfoVersion, kNumber},
    {"HASsignedAttrs", MessageQuery::hasSignedAttrs, kNumber},
    {"HASsignedAttributes", MessageQuery::hasSignedAttrs, kNumber},
    {"SigningTime", MessageQuery::signingTime, kText},
    {"digestAlgorithm", MessageQuery::digestAlgorithm, kText},
    {"signatureAlgorithm", MessageQuery::signatureAlgorithm, kText},
    {"messageDigest", MessageQuery::messageDigest, kText},
    {"CountOfRecipients", MessageQuery::countOfRecipients, kNumber},
    {"CountOfRecipientInfos", MessageQuery::countOfRecipients, kNumber},
    {"recipientInfoVersion", MessageQuery::recipientInfoVersion, kNumber},
    {"contentEncryptionAlgorithm", MessageQuery::contentEncryptionAlgorithm, kText},
    {"keyEncryptionAlgorithm", MessageQuery::keyEncryptionAlgorithm, kText},
    {"keyEncryptionFlags", MessageQuery::keyEncryptionFlags, kNumber},
    {"sizeofEncryptedKey", MessageQuery::sizeofEncryptedKey, kNumber},
    {"sizeofEncryptedContent", MessageQuery::sizeofEncryptedContent, kNumber},
    {"recipientIssuerName", MessageQuery::recipientIssuerName, kText},
    {"recipientSerialNumber", MessageQuery::recipientSerialNumber, kText},
};

const Keyword* find_keyword(std::string_view word) {
    const auto* found = std::find_if(std::begin(kKeywords), std::end(kKeywords),
                                     [=](const Keyword& keyword) { return keyword.word == word; });
    return found == std::end(kKeywords) ? nullptr : found;
}

} // namespace

void QueryAnswer::number(int64_t number) {
    value_ = static_cast<int>(std::clamp<int64_t>(number, 0, INT_MAX));
}

void QueryAnswer::text(const char* text) {
    value_ = text_result(out_, room_, text);
}

void QueryAnswer::algorithm(const asn_Node* algorithmIdentifier) {
    char name[kAlgorithmName];
    text(algorithm_name(algorithmIdentifier, name));
}

void QueryAnswer::hex(const SecretBuffer& bytes) {
    SecretBuffer digits(2 * bytes.size() + 1);
    hex_encode_lower(digits.text(), digits.size(), bytes.data(), bytes.size());
    text(digits.text());
}

int query_by_keyword(const MessageKind& kind, const char* fileOrText, const char* keyword, int options,
                     QueryAnswer& answer) {
    if (is_missing(keyword))
        return BAD_PARAM_ERROR;
    const Keyword* found = find_keyword(keyword);
    if (found == nullptr || !kind.knows(found->query))
        return BAD_QUERY_ERROR;
    if ((options & ZUL_QUERY_GETTYPE) != 0) {
        answer.number(found->type);
        return 0;
    }
    return is_missing(fileOrText) ? int{BAD_PARAM_ERROR} : kind.answer(fileOrText, found->query, answer);
}

} // namespace zul
