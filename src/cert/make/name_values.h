#pragma once
#include <string_view>

#include "asn1/asn_node.h"

// Names in descriptions: distinguished names and GeneralNames (RFC 5280, 4.2.1.6), constraints of names
// (4.2.1.10).
namespace zul {

enum class GeneralForm { dns, ip, email, uri, registeredId, directory, other, principal };

// distinguished_name_make makes a Name of attributes joined by ";", in their order: 0 or BAD_PARAM_ERROR with
// a text.
[[nodiscard]] int distinguished_name_make(AsnList& name, const char* text);

// relative_names_make makes the names in it without the SEQUENCE around them.
[[nodiscard]] int relative_names_make(AsnList& names, const char* text);

// general_name_make makes a name of one form from its text:
//  - dns: a host name, perhaps with "*" as its first label;   ip: an address;   uri: absolute, in ASCII
//  - email: an address; one that is not ASCII before the @ becomes a SmtpUTF8Mailbox (RFC 9598)
//  - registeredId: a dotted object identifier;   directory: as distinguished_name_make
//  - other: "OID:utf8:TEXT", or "OID:HEX" with the DER of the value
//  - principal: the name of a user (1.3.6.1.4.1.311.20.2.3)
// 0 or BAD_PARAM_ERROR with a text.
[[nodiscard]] int general_name_make(AsnList& name, GeneralForm form, std::string_view text);

// general_name_read makes one of a text "FORM:TEXT", with the keywords of descriptions as forms; without a
// form it is a URI.
[[nodiscard]] int general_name_read(AsnList& name, std::string_view text);

// name_constraint_make makes the base of a GeneralSubtree from "FORM:TEXT": dns (a domain and all below it),
// ip (an address, "/" and the length of the prefix or a mask), email (an address, a host, or a domain with
// "." in front), uri (a host, or a domain with "." in front), dir. An empty text after "dns:" is all names,
// which only excludesAll allows. 0 or BAD_PARAM_ERROR with a text.
[[nodiscard]] int name_constraint_make(AsnList& base, std::string_view text, bool excludesAll);

// der_element_from_hex reads the DER of one element, in pairs of hex digits: 0 or BAD_PARAM_ERROR with a
// text.
[[nodiscard]] int der_element_from_hex(AsnList& element, std::string_view text);

// uri_check tells whether a text is an absolute URI in ASCII (RFC 3986) whose host, if it has one, is a host
// name or an address: 0 or BAD_PARAM_ERROR with a text.
[[nodiscard]] int uri_check(std::string_view text);

} // namespace zul
