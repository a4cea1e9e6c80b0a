#pragma once
#include <string_view>

#include "asn1/asn_build.h"

// Object identifiers of keys, as content octets. They are not in the table of asn1/oid_table.h: its names
// show in texts that callers know.
namespace zul {

using std::string_view_literals::operator""sv;

constexpr std::string_view kOidEcPublicKey = "\x2A\x86\x48\xCE\x3D\x02\x01"sv;    // 1.2.840.10045.2.1
constexpr std::string_view kOidMgf1 = "\x2A\x86\x48\x86\xF7\x0D\x01\x01\x08"sv;   // 1.2.840.113549.1.1.8
constexpr std::string_view kOidPbes2 = "\x2A\x86\x48\x86\xF7\x0D\x01\x05\x0D"sv;  // 1.2.840.113549.1.5.13
constexpr std::string_view kOidScrypt = "\x2B\x06\x01\x04\x01\xDA\x47\x04\x0B"sv; // 1.3.6.1.4.1.11591.4.11

inline AsnList oid_node(std::string_view octets) {
    return asn_NewString(kAsnOid, octets.data(), octets.size());
}

inline bool oid_is(const asn_Node* node, std::string_view octets) {
    return asn_is(node, kAsnUniversal, kAsnOid) && node->data != nullptr &&
           std::string_view(reinterpret_cast<const char*>(node->data), node->length) == octets;
}

} // namespace zul
