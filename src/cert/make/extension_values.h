#pragma once
#include <string_view>

#include "asn1/asn_node.h"
#include "frame/memory.h"

// Elements of extensions from the texts of descriptions: 0 or BAD_PARAM_ERROR with a text.
namespace zul {

[[nodiscard]] int key_usage_bit(uint32_t& bit, std::string_view name);       // of keyUsage
[[nodiscard]] int key_purpose_make(AsnList& purpose, std::string_view text); // a name or dotted
[[nodiscard]] int tls_feature_make(AsnList& feature, std::string_view text); // a name or number
[[nodiscard]] int policy_make(AsnList& policy, std::string_view text);       // OID, OID:URI, OID:notice:TEXT
[[nodiscard]] int policy_mapping_make(AsnList& mapping, std::string_view text); // OID:OID
[[nodiscard]] int distribution_point_make(AsnList& point, std::string_view uri);
[[nodiscard]] int access_make(AsnList& access, std::string_view method, std::string_view uri);
[[nodiscard]] int subject_access_make(AsnList& access, std::string_view text); // METHOD:URI
// extension_make_any makes an Extension of "OID:HEX" or "OID:critical:HEX". Types that descriptions have
// keywords for are refused.
[[nodiscard]] int extension_make_any(AsnList& extension, std::string_view text);
// small_number_read reads a decimal number of at most nine digits.
[[nodiscard]] int small_number_read(int& number, std::string_view text);

// extension_make makes an Extension of a type, given as content octets, and a value.
AsnList extension_make(std::string_view oid, bool isCritical, AsnList value);
// extension_has_keyword tells whether a type is one that the maker of certificates writes itself.
bool extension_has_keyword(std::string_view oid);
// extension_type gives the type, as content octets, of an extension's name or dotted text; empty for another.
SecretBuffer extension_type(std::string_view text);

} // namespace zul
