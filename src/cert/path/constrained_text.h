#pragma once
#include <string_view>

// Texts against the bases of name constraints (RFC 5280, 4.2.1.10).
namespace zul {

// host_of_uri gives the host of a URI: empty if it has no authority, or an IP address for a host.
std::string_view host_of_uri(std::string_view uri);

// dns_is_within: a name is within a base if labels are added to its left, or none; labels have to be added if
// the base begins with ".". An empty base has all names in it. With overlaps a name that begins with "*" is
// also within what the "*" may stand for.
bool dns_is_within(std::string_view name, std::string_view base, bool overlaps);

// host_is_within: a base is a host, or all hosts below it if it begins with ".".
bool host_is_within(std::string_view host, std::string_view base);

// mailbox_is_within: a base is a mailbox, a host, or all hosts below it if it begins with ".". With anyCase
// local parts are compared without regard to case.
bool mailbox_is_within(std::string_view mailbox, std::string_view base, bool anyCase);

// The forms that names and bases have to have to be compared: without blanks, controls and bytes beyond
// ASCII, and with no empty label in the name of a host.
bool is_comparable_host(std::string_view host);
bool is_comparable_base(std::string_view base);
bool is_comparable_mailbox(std::string_view mailbox);

} // namespace zul
