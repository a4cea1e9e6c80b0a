#pragma once

namespace zul {

// The attributes that have a keyword in the text of a name.
struct NameWord {
    const char* keyword; // also the printed one
    const char* second;  // another keyword, or null
    const char* type;    // a name of the OID table
};

constexpr NameWord kNameWords[] = {
    {"CN", nullptr, "commonName"},      {"C", nullptr, "countryName"},
    {"O", nullptr, "organizationName"}, {"OU", nullptr, "organizationalUnitName"},
    {"L", nullptr, "localityName"},     {"ST", "S", "stateOrProvinceName"},
    {"E", nullptr, "emailAddress"},     {"SN", nullptr, "surname"},
    {"G", nullptr, "givenName"},        {"T", nullptr, "title"},
    {"DC", nullptr, "domainComponent"},
};

} // namespace zul
