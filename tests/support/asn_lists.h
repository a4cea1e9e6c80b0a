#pragma once
#include "asn1/asn_build.h"
#include "asn1/asn_encode.h"
#include "asn1/asn_parse.h"
#include "asn1/asn_value.h"
#include "frame/err.h"
#include "support/unit_test.h"

// ASN.1 lists from hex and back.
namespace test {

inline Bytes bytes_of(const zul::SecretBuffer& buffer) {
    return {buffer.data(), buffer.data() + buffer.size()};
}
// parse_hex reads one element from a block that ends with it: a sanitizer sees one byte too far.
inline zul::AsnList parse_hex(const std::string& hex, bool all = false) {
    const Bytes bytes = from_hex(hex), exact(bytes);
    return (all ? zul::asn_ParseAll : zul::asn_ParseBytes)(exact.data(), exact.size());
}
inline Bytes encoded(const zul::AsnList& list) {
    return bytes_of(zul::asn_Encode(list));
}
inline std::string hex_of(const zul::SecretBuffer& buffer) {
    return to_hex(bytes_of(buffer));
}
inline std::string hex_of(const zul::AsnList& list) {
    return to_hex(encoded(list));
}

} // namespace test
