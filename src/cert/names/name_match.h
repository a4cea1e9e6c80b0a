#pragma once
#include <cstring>

#include "asn1/der_reader.h"
#include "hash/sha256.h"

// Comparison of distinguished names (RFC 5280, 7.1; RFC 4518). Values of string types are compared as
// characters: the type does not matter, nor the case of a letter (of the Latin, Greek and Cyrillic
// alphabets), nor how much white space stands between words; at the ends it does not count. Values of other
// types are equal if their encodings are.
namespace zul {

// NameDigest is SHA-256 of the canonical form of a name. Two names match if and only if their digests are
// equal, so it serves as the key of an index too.
struct NameDigest {
    uint8_t bytes[kSha256Size];

    friend bool operator==(const NameDigest& a, const NameDigest& b) {
        return memcmp(a.bytes, b.bytes, sizeof a.bytes) == 0;
    }
    size_t hash() const {
        size_t value;
        memcpy(&value, bytes, sizeof value);
        return value;
    }
};

// NameDigester digests the RDNs of a name one after the other, as for the nameRelativeToCRLIssuer of a
// distribution point.
class NameDigester {
  public:
    NameDigester() { sha256_init(context_); }

    // add_name adds all RDNs of a whole Name, or the first ones; add_rdn the content of one. What cannot be
    // read is added as it is encoded, so that it matches itself alone.
    void add_name(DerView name, size_t most = SIZE_MAX);
    void add_rdn(DerView content);
    NameDigest digest() const; // of what has been added so far

  private:
    Sha256Context context_;
};

NameDigest name_digest(DerView name);

// names_match tells whether two whole Names are the same name.
[[nodiscard]] bool names_match(DerView a, DerView b);

// name_depth counts the RDNs of a name.
size_t name_depth(DerView name);

} // namespace zul
