#pragma once
#include <optional>

#include "hash/sha256.h"
#include "key/key.h"
#include "pfx/p12_scheme.h"

namespace zul {

enum class P12Kind : uint8_t { key, encryptedKey, certificate, crl, secret, other };

// P12Entry is a SafeBag (RFC 7292, 4.2), as far as it has been opened.
struct P12Entry {
    P12Kind kind = P12Kind::other;
    size_t number = 0, safe = 0; // of the entry and of the SafeContents around it, both from 1
    char type[kOidText]{};       // what the kind does not tell: the OID of a bag, a secret or a certificate
    SecretBuffer content;        // the structure inside; of a certificate that is not X.509 nothing
    bool hasName = false, hasKeyId = false, isTrusted = false;
    SecretBuffer name, keyId, attributes; // name: UTF-8; attributes: the OIDs of others, joined by blanks
    P12Scheme scheme;                     // of an encrypted key

    // Of certificates, and of keys after P12File::open_key.
    std::optional<Key> key;       // none if its kind is not supported
    uint8_t keyPrint[kSha256Size] // digest of the public key
        {};
    uint8_t subject[kSha256Size]{}, issuer[kSha256Size]{}; // digests of a certificate's names
    SecretBuffer subjectKeyId, authorityKeyId;             // of its extensions
    bool isPlaced = false;                                 // in the order of the output

    P12Entry* next = nullptr;

    bool is_key() const { return kind == P12Kind::key || kind == P12Kind::encryptedKey; }
    bool is_x509() const { return kind == P12Kind::certificate && type[0] == '\0'; }
};

// P12Entries owns entries in the order of the file.
class P12Entries {
  public:
    static constexpr size_t kMost = 4096;
    P12Entries() = default;
    P12Entries(const P12Entries&) = delete;
    P12Entries& operator=(const P12Entries&) = delete;
    ~P12Entries();

    P12Entry* head() const { return head_; }
    size_t count() const { return count_; }
    P12Entry& add();

  private:
    P12Entry *head_ = nullptr, *tail_ = nullptr;
    size_t count_ = 0;
};

// p12_open_certificate reads what an X.509 certificate in content holds: 0 or BAD_FORMAT_ERROR with a text.
[[nodiscard]] int p12_open_certificate(P12Entry& entry);

// p12_take_key reads a key from the elements of a PrivateKeyInfo: the codes of key_read_structure.
[[nodiscard]] int p12_take_key(P12Entry& entry, const asn_Node* privateKeyInfo);

// p12_belong tells whether a certificate is that of a key: it has the same public key, or, if one of the two
// is not known, the same localKeyId.
bool p12_belong(const P12Entry& key, const P12Entry& certificate);

// p12_certificate_of finds the first certificate of a key, p12_key_of the first key of a certificate; null
// for none.
P12Entry* p12_certificate_of(const P12Entries& entries, const P12Entry& key);
P12Entry* p12_key_of(const P12Entries& entries, const P12Entry& certificate);

} // namespace zul
