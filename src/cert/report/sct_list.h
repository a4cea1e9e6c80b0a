#pragma once
#include "asn1/der_reader.h"

// SignedCertificateTimestampList (RFC 6962, 3.2 and 3.3).
namespace zul {

struct SctView {
    unsigned version = 0; // 0: v1
    DerView logId, extensions, signature;
    uint64_t timestamp = 0; // milliseconds since 1970
    unsigned hash = 0, signatureAlgorithm = 0;
};

// SctReader steps over the timestamps of a list, the content of its OCTET STRING.
class SctReader {
  public:
    explicit SctReader(DerView list);
    // next gives the bytes of a timestamp: false at the end and for a list that is malformed.
    [[nodiscard]] bool next(DerView& sct);
    bool at_end() const { return isGood_ && rest_.empty(); }

  private:
    DerView rest_;
    bool isGood_ = false;
};

// sct_read reads a timestamp of version 1.
[[nodiscard]] bool sct_read(DerView bytes, SctView& sct);

} // namespace zul
