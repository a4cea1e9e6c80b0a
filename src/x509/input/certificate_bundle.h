#pragma once
#include "asn1/asn_node.h"
#include "asn1/asn_scope.h"
#include "x509/input/der_source.h"

namespace zul {

// ContentInfoScope is a structure and what it stands in, if it does not stand bare.
struct ContentInfoScope {
    AsnScope info, wrapper; // ContentInfo and its [0]
    AsnScope structure;
    bool isBare = true;
};

// enter_content_info steps from an object's beginning into the structure that a ContentInfo (RFC 5652, 3) of
// a type of the OID table holds, or that stands bare, which is one that begins with its version. False for
// anything else. leave_content_info steps from the end of the structure's last field out of everything: false
// if there is more, or the end of something is missing.
bool enter_content_info(ByteStream& stream, ContentInfoScope& scope, const char* type);
bool leave_content_info(ByteStream& stream, const ContentInfoScope& scope);

// CertificateBundle reads the certificate set of a CMS SignedData (RFC 5652, 5.1), whose content may be of
// any size. The certificates are the SEQUENCEs of the set; other forms have tags of their own.
class CertificateBundle {
  public:
    static constexpr int kMaxKept = 20;

    // open finds the set in a ContentInfo or a bare SignedData: 0, or BAD_FORMAT_ERROR without a text if the
    // source, which stays open as long as the bundle, holds no SignedData.
    [[nodiscard]] int open(DerSource& source);
    // open_set takes the set whose content the stream is at, and leaves the stream at its end: false if it is
    // malformed.
    bool open_set(ByteStream& stream, const AsnScope& scope);

    int count() const { return count_; }
    // certificate gives the n-th one from 0, whatever it holds; empty past the last, and for one that is
    // above kMaxX509Object bytes. Beyond the first kMaxKept, going on from the last one asked for costs
    // least.
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
    Place kept_[kMaxKept];      // of the first certificates: the set may be long, and is stepped over once
    mutable int nextIndex_ = 0; // of the certificate that stands at an offset or behind it
    mutable size_t nextOffset_ = 0;
};

} // namespace zul
