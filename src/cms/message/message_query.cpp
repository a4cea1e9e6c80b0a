#include "cms/message/message_query.h"

#include <climits>
#include <string_view>

#include "frame/slice.h"
#include "x509/names/pair_reader.h"
#include "zulcore.h"

namespace zul {
namespace {

enum class Scope { message, one }; // one signer or recipient

struct Keyword {
    std::string_view word;
    MessageQuery query;
    int type;
    Scope scope;
};

constexpr Keyword kKeywords[] = {
    {"Version", MessageQuery::version, kMessageNumber, Scope::message},
    {"eContentType", MessageQuery::eContentType, kMessageText, Scope::message},
    {"HASeContent", MessageQuery::hasEContent, kMessageNumber, Scope::message},
    {"CountOfCerts", MessageQuery::countOfCerts, kMessageNumber, Scope::message},
    {"CountOfCertificates", MessageQuery::countOfCerts, kMessageNumber, Scope::message},
    {"CountOfSigners", MessageQuery::countOfSigners, kMessageNumber, Scope::message},
    {"CountOfSignerInfos", MessageQuery::countOfSigners, kMessageNumber, Scope::message},
    {"signerInfoVersion", MessageQuery::signerInfoVersion, kMessageNumber, Scope::one},
    {"HASsignedAttrs", MessageQuery::hasSignedAttrs, kMessageNumber, Scope::one},
    {"HASsignedAttributes", MessageQuery::hasSignedAttrs, kMessageNumber, Scope::one},
    {"SigningTime", MessageQuery::signingTime, kMessageText, Scope::one},
    {"digestAlgorithm", MessageQuery::digestAlgorithm, kMessageText, Scope::one},
    {"signatureAlgorithm", MessageQuery::signatureAlgorithm, kMessageText, Scope::one},
    {"messageDigest", MessageQuery::messageDigest, kMessageText, Scope::one},
    {"CountOfRecipients", MessageQuery::countOfRecipients, kMessageNumber, Scope::message},
    {"CountOfRecipientInfos", MessageQuery::countOfRecipients, kMessageNumber, Scope::message},
    {"recipientInfoVersion", MessageQuery::recipientInfoVersion, kMessageNumber, Scope::one},
    {"contentEncryptionAlgorithm", MessageQuery::contentEncryptionAlgorithm, kMessageText, Scope::message},
    {"keyEncryptionAlgorithm", MessageQuery::keyEncryptionAlgorithm, kMessageText, Scope::one},
    {"keyEncryptionFlags", MessageQuery::keyEncryptionFlags, kMessageNumber, Scope::one},
    {"sizeofEncryptedKey", MessageQuery::sizeofEncryptedKey, kMessageNumber, Scope::one},
    {"sizeofEncryptedContent", MessageQuery::sizeofEncryptedContent, kMessageNumber, Scope::message},
    {"recipientIssuerName", MessageQuery::recipientIssuerName, kMessageText, Scope::one},
    {"recipientSerialNumber", MessageQuery::recipientSerialNumber, kMessageText, Scope::one},
};

// read_number reads decimal digits and nothing else; what no int can hold is INT_MAX. 0 for what is no
// number.
int read_number(std::string_view digits) {
    int number = 0;
    for (const char c : digits) {
        if (c < '0' || c > '9')
            return 0;
        const int digit = c - '0';
        number = number > (INT_MAX - digit) / 10 ? INT_MAX : number * 10 + digit;
    }
    return number;
}

} // namespace

int find_message_query(const char* query, int* index) {
    const std::string_view whole(query);
    const size_t slash = whole.find('/');
    int number = 1;
    if (slash != std::string_view::npos)
        number = read_number(slice(whole, slash + 1));
    for (const Keyword& keyword : kKeywords) {
        if (!same_word(slice(whole, 0, slash), keyword.word))
            continue;
        const bool mayBeNumbered = keyword.scope == Scope::one;
        if (number == 0 || (slash != std::string_view::npos && !mayBeNumbered))
            break;
        *index = number - 1;
        return static_cast<int>(keyword.query);
    }
    return -BAD_QUERY_ERROR;
}

int message_query_type(MessageQuery query) {
    for (const Keyword& keyword : kKeywords)
        if (keyword.query == query)
            return keyword.type;
    return -BAD_QUERY_ERROR;
}

int query_by_keyword(const MessageKind& kind, char* out, int room, const char* fileOrText,
                     const char* keyword, int options) {
    if (keyword == nullptr || *keyword == '\0')
        return -BAD_PARAM_ERROR;
    int index;
    const int found = find_message_query(keyword, &index);
    if (found < 0)
        return found;
    const auto query = static_cast<MessageQuery>(found);
    if (!kind.knows(query))
        return -BAD_QUERY_ERROR;
    if ((options & ZUL_QUERY_GETTYPE) != 0)
        return message_query_type(query);
    return fileOrText == nullptr || *fileOrText == '\0' ? -BAD_PARAM_ERROR
                                                        : kind.answer(out, room, fileOrText, query, index);
}

} // namespace zul
