#pragma once

// What CMS_QuerySigData and CMS_QueryEnvData know.
namespace zul {

// The first half is about signed messages, from countOfRecipients on about enveloped ones; version is of
// both.
enum class MessageQuery : int {
    version,
    eContentType,
    hasEContent,
    countOfCerts,
    countOfSigners,
    signerInfoVersion,
    hasSignedAttrs,
    signingTime,
    digestAlgorithm,
    signatureAlgorithm,
    messageDigest,
    countOfRecipients,
    recipientInfoVersion,
    contentEncryptionAlgorithm,
    keyEncryptionAlgorithm,
    keyEncryptionFlags,
    sizeofEncryptedKey,
    sizeofEncryptedContent,
    recipientIssuerName,
    recipientSerialNumber,
};

inline bool is_signed_data_query(MessageQuery query) {
    return query < MessageQuery::countOfRecipients;
}
inline bool is_enveloped_data_query(MessageQuery query) {
    return query == MessageQuery::version || query >= MessageQuery::countOfRecipients;
}

// find_message_query matches a keyword, in any case, and "/n" behind one that is about a signer or recipient,
// whose number from 0 goes to *index (0 if no "/n" is there): the query's number, or -BAD_QUERY_ERROR.
int find_message_query(const char* query, int* index);
constexpr int kMessageNumber = 1, kMessageText = 2;
int message_query_type(MessageQuery query);

// Both give a number, or the length of the text written under the common length rule, or a negated code. What
// the message does not have is 0 or an empty text.
int query_signed_data(char* out, int room, const char* fileOrText, MessageQuery query, int index);
int query_enveloped_data(char* out, int room, const char* fileOrText, MessageQuery query, int index);

// query_by_keyword answers a query of one of the two kinds, whose functions it takes: as these do, or what
// ZUL_QUERY_GETTYPE asks for.
struct MessageKind {
    bool (*knows)(MessageQuery query);
    int (*answer)(char* out, int room, const char* fileOrText, MessageQuery query, int index);
};
int query_by_keyword(const MessageKind& kind, char* out, int room, const char* fileOrText,
                     const char* keyword, int options);

} // namespace zul
