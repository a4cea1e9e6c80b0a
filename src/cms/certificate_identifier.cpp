#include "cms/certificate_identifier.h"

#include <cstring>

#include "asn1/asn_children.h"
#include "asn1/asn_element.h"
#include "x509/certificate_extensions.h"

namespace zul {
namespace {

// An INTEGER without the octets that only repeat its sign: what is not DER has the same value.
struct Octets {
    const uint8_t* data;
    size_t size;

    explicit Octets(const asn_Node* integer)
        : data(integer->data), size(integer->data == nullptr ? 0 : integer->length) {
        while (size > 1 && (data[0] == 0 || data[0] == 0xFF) && ((data[0] ^ data[1]) & 0x80) == 0) {
            data++;
            size--;
        }
    }
    bool operator==(const Octets& other) const {
        return size == other.size && size > 0 && memcmp(data, other.data, size) == 0;
    }
};

bool names_issuer_and_serial(const asn_Node* identifier, const CertificateFields& certificate) {
    AsnChildren children(identifier);
    const asn_Node* issuer = children.take_sequence();
    const asn_Node* serial = children.take_integer();
    return serial != nullptr && certificate.serialNumber != nullptr &&
           Octets(serial) == Octets(certificate.serialNumber) && same_name(issuer, certificate.issuer);
}

// is_key_identifier compares the octets of an [0] in one piece or in segments, which also those have who take
// its tag for an explicit one.
bool is_key_identifier(const asn_Node* identifier, const SecretBuffer& octets) {
    size_t done = 0;
    const asn_Node* end = asn_ElementEnd(identifier);
    for (const asn_Node* part = identifier; part != end; part = part->next) {
        if (part->data == nullptr)
            continue;
        if (part != identifier && !asn_is(part, kAsnUniversal, kAsnOctetString))
            return false;
        if (part->length > octets.size() - done ||
            memcmp(part->data, octets.data() + done, part->length) != 0)
            return false;
        done += part->length;
    }
    return done == octets.size() && done > 0;
}

} // namespace

bool identifier_names(const asn_Node* identifier, const CertificateFields& certificate) {
    if (asn_is(identifier, kAsnConstructed, kAsnSequence))
        return names_issuer_and_serial(identifier, certificate);
    if (asn_is(identifier, kAsnContext, 0) || asn_is(identifier, kAsnExplicit, 0))
        return is_key_identifier(identifier, subject_key_identifier(certificate));
    return false;
}

} // namespace zul
