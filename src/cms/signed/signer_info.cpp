#include "cms/signed/signer_info.h"

#include <algorithm>

#include "asn1/asn_build.h"
#include "asn1/asn_children.h"
#include "asn1/asn_element.h"
#include "asn1/asn_encode.h"
#include "asn1/asn_header.h"
#include "asn1/asn_value.h"
#include "asn1/oid.h"
#include "hash/digest.h"

namespace zul {
namespace {

// No message needs more, and each one costs time.
constexpr size_t kMaxSorted = 128;

// sorted_set makes the SET of lists, in the order of DER.
AsnList sorted_set(AsnList* lists, size_t n) {
    asn_SortSet(lists, n);
    AsnList content;
    for (size_t i = 0; i < n; i++)
        content = asn_Link(std::move(content), std::move(lists[i]));
    return asn_NewSet(std::move(content));
}

// der_values is the SET of an attribute's values in DER.
AsnList der_values(const asn_Node* set) {
    AsnList values[kMaxSorted];
    size_t n = 0;
    for (AsnChildren children(set); !children.at_end(); n++) {
        if (n == kMaxSorted)
            return AsnList::failure();
        values[n] = asn_ToDer(asn_CopyElement(children.take()));
    }
    return sorted_set(values, n);
}

AsnList der_attribute(const asn_Node* attribute) {
    AsnChildren parts(attribute);
    const asn_Node* type = parts.take_oid();
    const asn_Node* values = parts.take_if(kAsnConstructed, kAsnSet);
    if (!asn_is(attribute, kAsnConstructed, kAsnSequence) || type == nullptr || values == nullptr ||
        !parts.at_end())
        return AsnList::failure();
    return asn_NewSequence(asn_LinkList(asn_ToDer(asn_CopyElement(type)), der_values(values)));
}

} // namespace

SignerFields signer_fields(const asn_Node* signerInfo) {
    SignerFields fields;
    AsnChildren children(signerInfo);
    fields.version = children.take_integer();
    fields.identifier = children.take_sequence();
    if (fields.identifier == nullptr)
        fields.identifier = children.take_if(kAsnContext, 0);
    if (fields.identifier == nullptr)
        fields.identifier = children.take_if(kAsnExplicit, 0);
    fields.digestAlgorithm = children.take_sequence();
    fields.signedAttributes = children.take_if(kAsnExplicit, 0);
    fields.signatureAlgorithm = children.take_sequence();
    fields.signature = children.take_octets();
    return fields;
}

int find_attribute(const asn_Node* signedAttributes, const char* type, const asn_Node** value) {
    *value = nullptr;
    OidInfo wanted;
    if (oid_FromName(&wanted, type) == 0)
        return 0;
    int count = 0, attributeCount = 0;
    for (AsnChildren attributes(signedAttributes); !attributes.at_end();) {
        const asn_Node* attribute = attributes.take();
        if (!asn_is(attribute, kAsnConstructed, kAsnSequence))
            continue;
        AsnChildren parts(attribute);
        if (asn_OidEquals(parts.take(), &wanted) != 0)
            continue;
        attributeCount++;
        for (AsnChildren values(parts.take_if(kAsnConstructed, kAsnSet)); !values.at_end(); count++) {
            const asn_Node* found = values.take();
            if (count == 0)
                *value = found;
        }
    }
    return attributeCount > 1 ? std::max(count, attributeCount) : count;
}

SecretBuffer signed_attributes_set(const asn_Node* signedAttributes, bool der) {
    constexpr uint8_t kTagOctet = kAsnExplicit, kSetOctet = kAsnConstructed | kAsnSet;
    uint8_t hdr[8];
    // Behind a tag of two octets its second one would be the first of the length.
    if (!asn_is(signedAttributes, kAsnExplicit, 0) || asn_header_octets(signedAttributes, hdr) == 0 ||
        hdr[0] != kTagOctet)
        return {};
    if (!der) {
        SecretBuffer set = asn_EncodeElement(signedAttributes);
        if (!set.empty())
            set[0] = kSetOctet;
        return set;
    }
    AsnList attributes[kMaxSorted];
    size_t n = 0;
    for (AsnChildren children(signedAttributes); !children.at_end(); n++) {
        if (n == kMaxSorted)
            return {};
        attributes[n] = der_attribute(children.take());
    }
    return asn_Encode(sorted_set(attributes, n));
}

int digest_algorithm_of(const asn_Node* algorithmIdentifier) {
    OidInfo type;
    if (asn_GetOid(AsnChildren(algorithmIdentifier).peek(), &type) != 0)
        return -1;
    const DigestDescriptor* digest = digest_named(type.name);
    return digest == nullptr ? -1 : digest->algorithm;
}

} // namespace zul
