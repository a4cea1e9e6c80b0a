#pragma once
#include "asn1/asn_node.h"

// The outer parts of a new signed message (RFC 5652, 5.1).
namespace zul {

// SignedDataParts are the variable parts of a message. An empty part makes an empty SET or is left out.
struct SignedDataParts {
    AsnList digestAlgorithm;
    AsnList content;      // OCTET STRING
    AsnList certificates; // [0]
    AsnList signerInfo;
};

// write_signed_data writes the message, with options of the exports: 0 or a positive code with a text.
// label is that of base64 (null: none).
[[nodiscard]] int write_signed_data(const char* path, SignedDataParts parts, int options, const char* label);

} // namespace zul
