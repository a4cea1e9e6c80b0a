#pragma once
#include "asn1/asn_node.h"

// The identifier and length octets of one element (X.690, 8.1).
namespace zul {

class ByteStream;

struct AsnHeader {
    uint32_t cls, tag, length, ndef, hdrsize;
    uint8_t hdr[8];

    // An end-of-contents marker is 00 00 and nothing else.
    bool is_false_marker() const { return cls == 0 && tag == 0 && (hdrsize != 2 || hdr[1] != 0); }
};

// asn_read_header gives 1, 0 if the data end before the header does, or -1 for a header of no known form: of
// five or more length octets, or one that hdr cannot hold.
[[nodiscard]] int asn_read_header(ByteStream& stream, AsnHeader& header);

// asn_header_octets gives a node's header octets, computed if the node has none yet: their number, or 0 if
// the length is unset or the tag is above 30.
size_t asn_header_octets(const asn_Node* node, uint8_t out[8]);

} // namespace zul
