#pragma once
#include "asn1/asn_node.h"
#include "frame/memory.h"

// What CMS_QuerySigData and CMS_QueryEnvData know.
namespace zul {

// Those before countOfRecipients are for signed messages, the others for enveloped ones; version is for both.
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

// QueryAnswer takes the answer for a caller: a number, or a text written into the caller's buffer.
class QueryAnswer {
  public:
    QueryAnswer(char* out, int room) : out_(out), room_(room) {}

    void number(int64_t number); // limited to 0 to INT_MAX
    void text(const char* text);
    void algorithm(const asn_Node* algorithmIdentifier); // its name
    void hex(const SecretBuffer& bytes);

    char* out() const { return out_; }
    int room() const { return room_; }
    int value() const { return value_; } // the number, or the length of the text

  private:
    char* out_;
    int room_;
    int value_ = 0;
};

// Both give 0 or a positive code. Queries about a signer or recipient are answered for the first one. A
// missing part is 0 or an empty text.
[[nodiscard]] int query_signed_data(const char* fileOrText, MessageQuery query, QueryAnswer& answer);
[[nodiscard]] int query_enveloped_data(const char* fileOrText, MessageQuery query, QueryAnswer& answer);

// MessageKind has the functions of one of the two kinds of messages.
struct MessageKind {
    bool (*knows)(MessageQuery query);
    int (*answer)(const char* fileOrText, MessageQuery query, QueryAnswer& answer);
};
// query_by_keyword answers a query, or what ZUL_QUERY_GETTYPE asks for: 0 or a positive code. The keyword has
// to be the whole name in its own case.
[[nodiscard]] int query_by_keyword(const MessageKind& kind, const char* fileOrText, const char* keyword,
                                   int options, QueryAnswer& answer);

} // namespace zul
