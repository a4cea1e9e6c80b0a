#pragma once
#include <cstddef>
#include <cstdint>

namespace zul {

struct asn_Node;

struct OidInfo {
    uint8_t bytes[32]; // content octets, at most 31
    int32_t length;
    char name[64];
};

// oid_FromName fills a record by a name of the table, in any case: the number of content octets, or 0.
int oid_FromName(OidInfo* rec, const char* name);
// oid_FromBytes finds the name of a record's octets: 0, or -1 if the table has none.
[[nodiscard]] int oid_FromBytes(OidInfo* rec);
// oid_ToDotted writes at most max characters of the dotted form, and a NUL (buf holds max + 1): its length,
// or -1 for anything but an OBJECT IDENTIFIER of at most 32 octets that ends with a whole arc.
int oid_ToDotted(const asn_Node* node, char* buf, size_t max);

} // namespace zul
