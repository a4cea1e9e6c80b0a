#pragma once
#include <cstring>
#include <string_view>

// Attributes of names that have keywords (RFC 5280, 4.1.2.4 and A.1; RFC 4519; X.520).
namespace zul {

using std::string_view_literals::operator""sv;

enum class NameValueKind { directory, printable, country, domain, address };

// most is the upper bound in characters: RFC 5280, A.1 and X.520.
struct NameAttributeType {
    const char *keyword, *second;
    std::string_view oid;
    NameValueKind kind;
    size_t most;
};
inline constexpr size_t kMostName = 32768;
inline constexpr NameAttributeType kNameAttributes[] = {
    {"CN", "commonName", "\x55\x04\x03"sv, NameValueKind::directory, 64},
    {"C", "countryName", "\x55\x04\x06"sv, NameValueKind::country, 2},
    {"O", "organizationName", "\x55\x04\x0A"sv, NameValueKind::directory, 64},
    {"OU", "organizationalUnitName", "\x55\x04\x0B"sv, NameValueKind::directory, 64},
    {"L", "localityName", "\x55\x04\x07"sv, NameValueKind::directory, 128},
    {"ST", "stateOrProvinceName", "\x55\x04\x08"sv, NameValueKind::directory, 128},
    {"S", nullptr, "\x55\x04\x08"sv, NameValueKind::directory, 128},
    {"STREET", "streetAddress", "\x55\x04\x09"sv, NameValueKind::directory, 128},
    {"POSTALCODE", nullptr, "\x55\x04\x11"sv, NameValueKind::directory, 40},
    {"E", "emailAddress", "\x2A\x86\x48\x86\xF7\x0D\x01\x09\x01"sv, NameValueKind::address, 255},
    {"SN", "surname", "\x55\x04\x04"sv, NameValueKind::directory, kMostName},
    {"G", "givenName", "\x55\x04\x2A"sv, NameValueKind::directory, kMostName},
    {"INITIALS", nullptr, "\x55\x04\x2B"sv, NameValueKind::directory, kMostName},
    {"GENERATIONQUALIFIER", nullptr, "\x55\x04\x2C"sv, NameValueKind::directory, kMostName},
    {"T", "title", "\x55\x04\x0C"sv, NameValueKind::directory, 64},
    {"DC", "domainComponent", "\x09\x92\x26\x89\x93\xF2\x2C\x64\x01\x19"sv, NameValueKind::domain, 63},
    {"UID", "userId", "\x09\x92\x26\x89\x93\xF2\x2C\x64\x01\x01"sv, NameValueKind::directory, 256},
    {"SERIALNUMBER", nullptr, "\x55\x04\x05"sv, NameValueKind::printable, 64},
    {"DNQUALIFIER", nullptr, "\x55\x04\x2E"sv, NameValueKind::printable, 64},
    {"ORGANIZATIONIDENTIFIER", nullptr, "\x55\x04\x61"sv, NameValueKind::directory, kMostName},
    {"BUSINESSCATEGORY", nullptr, "\x55\x04\x0F"sv, NameValueKind::directory, 128},
    {"PSEUDONYM", nullptr, "\x55\x04\x41"sv, NameValueKind::directory, 128},
};

// name_attribute_of gives the attribute of a type, given as content octets; one with the widest rules if the
// table has none.
inline const NameAttributeType& name_attribute_of(std::string_view oid) {
    static constexpr NameAttributeType kOther{nullptr, nullptr, {}, NameValueKind::directory, kMostName};
    for (const NameAttributeType& row : kNameAttributes)
        if (row.oid == oid)
            return row;
    return kOther;
}

// is_printable_character tells whether a PrintableString may hold a character (X.680, 41.4).
inline bool is_printable_character(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') ||
           (c != '\0' && strchr(" '()+,-./:=?", c) != nullptr);
}

} // namespace zul
