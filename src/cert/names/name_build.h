#pragma once
#include <string_view>

#include "asn1/asn_node.h"

// Distinguished names of new certificates (X.501; RFC 5280, 4.1.2.4 and A.1).
namespace zul {

// name_is_attribute tells whether a keyword in any case, or a dotted object identifier, is an attribute's
// type.
bool name_is_attribute(std::string_view keyword);

// name_attribute_make makes the relative name of one attribute. The value is UTF-8; "#x" in front of hex
// digits gives its bytes, "##x" a text that begins with "#x". It is a UTF8String, but a PrintableString for
// countryName (made upper case), serialNumber and dnQualifier, and an IA5String for domainComponent and
// emailAddress, whose domains become ASCII. 0, or BAD_PARAM_ERROR with a text: no such type, not UTF-8,
// empty, control characters, characters that the type lacks, longer than the attribute's upper bound.
[[nodiscard]] int name_attribute_make(AsnList& relativeName, std::string_view keyword,
                                      std::string_view value);

} // namespace zul
