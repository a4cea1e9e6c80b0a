#pragma once
#include "asn1/asn_scope.h"

namespace zul {

// OctetContent is the content of an OCTET STRING where it stands in a stream, in one piece or in segments
// (X.690, 8.7), nested up to kAsnMaxDepth deep. It is read piece by piece, so that a message costs no memory.
// The stream has to stay open as long; others may use it between two calls.
class OctetContent {
  public:
    // open takes the element of a type (OCTET STRING, or a tag that replaces it) that the stream is at, sums
    // up its pieces, and leaves the stream behind it: 0, MSG_TOO_LONG_ERROR with a text for a piece above
    // kAsnMaxContent, or INVALID_DATA_ERROR without one.
    [[nodiscard]] int open(ByteStream& stream, const AsnScope& scope, uint32_t cls, uint32_t tag);

    bool is_open() const { return stream_ != nullptr; }
    size_t size() const { return size_; } // octets of all pieces
    bool rewind();                        // to the first octet; also before the first read
    size_t read(void* out, size_t n);     // fewer than n only at the end, or if reading fails

  private:
    bool next_piece();

    ByteStream* stream_ = nullptr;
    size_t start_ = 0, end_ = 0; // of the element
    size_t size_ = 0;
    size_t at_ = 0;   // where to read on
    size_t left_ = 0; // octets of the present piece
};

} // namespace zul
