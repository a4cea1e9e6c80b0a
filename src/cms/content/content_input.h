#pragma once
#include "asn1/asn_node.h"

// The content of a new message, read straight into the element that will carry it.
namespace zul {

struct ContentShape {
    uint32_t cls = kAsnUniversal;
    uint32_t tag = kAsnOctetString;
    size_t blockLength = 0; // not 0: the content is padded to whole blocks (RFC 5652, 6.3)
};

// Both give 0 or a positive code with a text: OPEN_ERROR, READ_ERROR, or MSG_TOO_LONG_ERROR for more than one
// element holds (kAsnMaxContent, padding included).
[[nodiscard]] int content_from_file(const char* path, const ContentShape& shape, AsnList& element);
[[nodiscard]] int content_from_bytes(const void* bytes, size_t size, const ContentShape& shape,
                                     AsnList& element);

// content_digest_of_file digests content of any size that no message will carry, with a known algorithm: 0,
// OPEN_ERROR or READ_ERROR with a text. The digest has digest_length(algorithm) bytes.
[[nodiscard]] int content_digest_of_file(const char* path, int algorithm, uint8_t* digest, bool& isEmpty);

} // namespace zul
