#pragma once
#include "asn1/der_reader.h"
#include "cert/fields/crl_view.h"
#include "cert/names/name_match.h"
#include "frame/array.h"

// The certificates that are newly revoked, out of a text.
namespace zul {

constexpr size_t kMaxRevokedText = 64 << 20, kMaxRevoked = 1 << 20; // bytes, entries

// StableBytes keeps copies that stay where they are.
class StableBytes {
  public:
    DerView add(DerView bytes);

  private:
    static constexpr size_t kBlock = 1 << 16;
    Array<SecretBuffer> blocks_;
    size_t filled_ = 0; // of the last block
};

// RevokedEntry is one entry. Times are seconds since 1970.
struct RevokedEntry {
    DerView serialNumber; // content
    DerView issuer;       // content of GeneralNames
    int64_t date = 0, invalidityDate = 0;
    int reason = 0;
    bool hasDate = false, hasInvalidityDate = false;
    bool isMet = false;  // the earlier list has the certificate
    bool isDone = false; // it stands in the list, or took an entry out of it
};

// RevokedScope says what the list is for.
struct RevokedScope {
    DerView issuerName;  // of the list: a whole Name
    DerView issuerNames; // as content of GeneralNames
    IssuingPoint point;
    int64_t thisUpdate = 0;
};

// IssuerTable has the issuers of certificates as contents of GeneralNames. Names that match (name_match.h)
// are one issuer, however they are encoded.
class IssuerTable {
  public:
    DerView add(DerView names, StableBytes& bytes); // of the table, which keeps a copy
    DerView find(DerView names) const;              // of the table, or the same names if it lacks them

  private:
    struct Row {
        NameDigest digest;
        DerView names;
    };
    size_t slot_of(const NameDigest& digest) const; // where the name stands, or would
    void grow();

    Array<Row> rows_;
    Array<uint32_t> slots_; // a power of two, more than half of them free (0); else the index of a row and 1
};

struct RevokedList {
    StableBytes bytes;
    IssuerTable issuers;
    Array<RevokedEntry> entries;
};

// revoked_text_read reads entries joined by ";", each of fields joined by "," (zulcore.h has them); null is
// an empty text. 0, or a code with a text that tells which entry and field it is about: BAD_PARAM_ERROR,
// NO_MATCH_ERROR (a certificate of another issuer), or the codes of reading a certificate.
[[nodiscard]] int revoked_text_read(RevokedList& list, const char* text, const RevokedScope& scope);

} // namespace zul
