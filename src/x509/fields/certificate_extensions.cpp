#include "x509/fields/certificate_extensions.h"

#include <cstring>

#include "asn1/asn_children.h"
#include "asn1/asn_parse.h"
#include "asn1/asn_value.h"
#include "asn1/byte_stream.h"
#include "asn1/oid.h"
#include "frame/err.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr uint32_t kRfc822Name = 1, kUri = 6; // GeneralName (RFC 5280, 4.2.1.6)

SecretBuffer empty_text() {
    SecretBuffer text(1);
    text.shrink(0);
    return text;
}

// children_of gives the elements of a SEQUENCE, none of anything else.
AsnChildren children_of(const AsnList& value) {
    return AsnChildren::of_sequence(value.head());
}

// name_of gives the text of a GeneralName, empty for null.
[[nodiscard]] int name_of(const asn_Node* node, SecretBuffer& text) {
    if (!asn_GetPrimitiveData(node, text))
        text = empty_text();
    if (memchr(text.data(), 0, text.size()) == nullptr)
        return 0;
    text = empty_text();
    return err_fail(INVALID_DATA_ERROR, "Name holds a zero byte");
}

[[nodiscard]] int first_uri(const CertificateFields& certificate, const char* extension, SecretBuffer& text) {
    const AsnList value = find_extension(certificate, extension);
    const asn_Node* node = value.head();
    while (node != nullptr && !asn_is(node, kAsnContext, kUri))
        node = node->next;
    return name_of(node, text);
}

} // namespace

AsnList find_extension(const CertificateFields& certificate, const char* name) {
    OidInfo wanted;
    if (oid_FromName(&wanted, name) == 0)
        return {};
    for (AsnChildren all(AsnChildren(certificate.extensions).take_sequence()); !all.at_end();) {
        AsnChildren extension(all.take());
        if (asn_OidEquals(extension.take_oid(), &wanted) != 0)
            continue;
        const asn_Node* octets = nullptr;
        while (octets == nullptr && !extension.at_end()) {
            octets = extension.take_octets();
            if (octets == nullptr)
                extension.take(); // whether it is critical
        }
        SecretBuffer value;
        if (!asn_GetOctets(octets, value))
            return {};
        ByteStream stream(value.data(), value.size());
        return asn_Parse(stream, false, true);
    }
    return {};
}

bool is_ca(const CertificateFields& certificate) {
    const AsnList value = find_extension(certificate, "basicConstraints");
    return asn_GetBoolean(children_of(value).peek()) == 1;
}

uint32_t key_usage_flags(const CertificateFields& certificate) {
    constexpr uint32_t kNotNegative = 0x7FFFFFFF; // the flags are the result of a call
    return asn_GetBitFlags(find_extension(certificate, "keyUsage").head()) & kNotNegative;
}

size_t key_usage_text(uint32_t flags, char out[kKeyUsageText + 1]) {
    static constexpr const char* kNames[] = {"digitalSignature", "nonRepudiation", "keyEncipherment",
                                             "dataEncipherment", "keyAgreement",   "keyCertSign",
                                             "cRLSign",          "encipherOnly",   "decipherOnly"};
    size_t length = 0; // all of them together have 123 characters
    for (const char* name : kNames) {
        if ((flags & 1) != 0) {
            if (length != 0)
                out[length++] = ',';
            const size_t n = strlen(name);
            memcpy(out + length, name, n);
            length += n;
        }
        flags >>= 1;
    }
    out[length] = '\0';
    return length;
}

int extended_key_usage_text(const CertificateFields& certificate, SecretBuffer& text) {
    constexpr size_t kMaxDotted = 64;
    const AsnList value = find_extension(certificate, "extKeyUsage");
    text = empty_text();
    for (AsnChildren purposes = children_of(value); !purposes.at_end();) {
        const asn_Node* purpose = purposes.take();
        OidInfo info;
        char dotted[kMaxDotted + 1];
        const char* name = info.name;
        if (asn_GetOid(purpose, &info) != 0) {
            if (oid_ToDotted(purpose, dotted, kMaxDotted) <= 0) {
                text = empty_text();
                return err_fail(INVALID_DATA_ERROR, "Invalid purpose in extended key usage");
            }
            name = dotted;
        }
        if (!text.empty())
            text.append(",", 1);
        text.append(name, strlen(name));
    }
    return 0;
}

SecretBuffer subject_key_identifier(const CertificateFields& certificate) {
    SecretBuffer octets;
    const AsnList value = find_extension(certificate, "subjectKeyIdentifier");
    return asn_GetOctets(value.head(), octets) ? std::move(octets) : empty_text();
}

SecretBuffer authority_key_identifier(const CertificateFields& certificate) {
    SecretBuffer octets;
    const AsnList value = find_extension(certificate, "authorityKeyIdentifier");
    for (AsnChildren children = children_of(value); !children.at_end();)
        if (const asn_Node* child = children.take();
            asn_is(child, kAsnContext, 0) && asn_GetPrimitiveData(child, octets))
            return octets;
    return empty_text();
}

int rfc822_name(const CertificateFields& certificate, SecretBuffer& text) {
    const AsnList value = find_extension(certificate, "subjectAltName");
    for (AsnChildren names = children_of(value); !names.at_end();)
        if (const asn_Node* name = names.take(); asn_is(name, kAsnContext, kRfc822Name))
            return name_of(name, text);
    return name_of(nullptr, text);
}

int crl_distribution_point_uri(const CertificateFields& certificate, SecretBuffer& text) {
    return first_uri(certificate, "cRLDistributionPoints", text);
}

int authority_info_access_uri(const CertificateFields& certificate, SecretBuffer& text) {
    return first_uri(certificate, "authorityInfoAccess", text);
}

} // namespace zul
