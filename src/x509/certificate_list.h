#pragma once
#include "asn1/asn_node.h"
#include "x509/der_source.h"

namespace zul {

// CertificateBundle reads the certificate set of a CMS SignedData (RFC 5652, 5.1), in a ContentInfo or bare,
// whose content may be of any size.
class CertificateBundle {
  public:
    static constexpr int kMaxKept = 20;

    // open gives 0, or BAD_FORMAT_ERROR without a text if the source, which stays open as long as the bundle,
    // holds no SignedData.
    int open(DerSource& source);
    int count() const { return count_; }
    // certificate gives the n-th one from 0, whatever it holds; empty past the last or the kMaxKept-th, and
    // for one that is above kMaxX509Object bytes.
    AsnList certificate(int n) const;

  private:
    struct Place {
        size_t offset, size;
    };

    ByteStream* stream_ = nullptr;
    int count_ = 0;
    Place kept_[kMaxKept]; // of the first certificates: the set may be long, and is stepped over once
};

} // namespace zul
