#pragma once
#include "asn1/asn_node.h"
#include "asn1/asn_scope.h"
#include "x509/input/der_source.h"

namespace zul {

// ContentInfoScope holds the scope of a structure and of the ContentInfo around it, if there is one.
struct ContentInfoScope {
    AsnScope info, wrapper; // ContentInfo and its [0]
    AsnScope structure;
    bool isBare = true;
};

// enter_content_info steps from the beginning of a ContentInfo (RFC 5652, 3) into the structure inside. Its
// type is a name of the OID table. A bare structure, which begins with its version, is taken too. False for
// anything else. leave_content_info steps out again from the end of the last field: false if other elements
// follow, or an end is missing.
bool enter_content_info(ByteStream& stream, ContentInfoScope& scope, const char* type);
bool leave_content_info(ByteStream& stream, const ContentInfoScope& scope);

// CertificateBundle reads the certificate set of a CMS SignedData (RFC 5652, 5.1), whose content may be of
// any size. The certificates are the SEQUENCEs of the set; other forms have tags of their own.
class CertificateBundle {
  public:
    static constexpr int kMaxKept = 20;

    // open finds the set in a ContentInfo or a bare SignedData: 0, or BAD_FORMAT_ERROR without a text for
    // anything else. The source must stay open as long as the bundle.
    [[nodiscard]] int open(DerSource& source);
    // open_set takes a set from a stream that is at its content, and leaves the stream at its end: false for
    // a malformed set.
    bool open_set(ByteStream& stream, const AsnScope& scope);

    int count() const { return count_; }
    // certificate gives the n-th one, counted from 0. Its content is not checked. It is empty past the last
    // one, and above kMaxX509Object bytes. Beyond the first kMaxKept, calls in ascending order are the
    // cheapest.
    AsnList certificate(int n) const;

  private:
    struct Place {
        size_t offset, size;
    };
    bool open_fields(ByteStream& stream, const AsnScope& scope);
    bool find(int n, Place& place) const;

    ByteStream* stream_ = nullptr;
    AsnScope scope_;
    int count_ = 0;
    Place kept_[kMaxKept];      // of the first certificates
    mutable int nextIndex_ = 0; // of the first certificate from nextOffset_ on
    mutable size_t nextOffset_ = 0;
};

} // namespace zul
