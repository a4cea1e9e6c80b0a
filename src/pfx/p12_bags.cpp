// SafeBags and their attributes: RFC 7292, 4.2; PKCS #9 (RFC 2985, 5.5) for friendlyName and localKeyId.
#include "pfx/p12_bags.h"

#include <cstring>

#include "asn1/asn_build.h"
#include "asn1/asn_children.h"
#include "asn1/asn_element.h"
#include "asn1/asn_value.h"
#include "frame/err.h"
#include "frame/text.h"
#include "key/key_oids.h"
#include "pfx/p12_oids.h"
#include "pfx/p12_text.h"
#include "pfx/pfx_reader.h"
#include "zulcore.h"

namespace zul {
namespace {

[[nodiscard]] int malformed(const P12Entry& entry) {
    return err_fail(BAD_FORMAT_ERROR, "Entry %u is malformed", static_cast<unsigned>(entry.number));
}

// take_name reads a friendlyName. Some writers use other string types than BMPString.
bool take_name(P12Entry& entry, const asn_Node* value) {
    SecretBuffer bytes;
    if (!asn_GetPrimitiveData(value, bytes))
        return false;
    if (asn_is(value, kAsnUniversal, kAsnBmpString))
        utf8_from_utf16(entry.name, bytes.data(), bytes.size());
    else if (asn_is(value, kAsnUniversal, kAsnUtf8String))
        entry.name = std::move(bytes);
    else
        append_latin1(entry.name, view_of(bytes));
    entry.hasName = true;
    return true;
}

bool read_attribute(P12Entry& entry, const asn_Node* attribute) {
    AsnChildren children(attribute);
    const asn_Node* type = children.take_oid();
    AsnChildren values(children.take_if(kAsnConstructed, kAsnSet));
    if (type == nullptr || !children.at_end())
        return false;
    if (asn_OidIs(type, "friendlyName") && !entry.hasName && !values.at_end())
        return take_name(entry, values.take());
    if (asn_OidIs(type, "localKeyID") && !entry.hasKeyId && !values.at_end()) {
        entry.hasKeyId = true;
        return asn_GetOctets(values.take_octets(), entry.keyId);
    }
    if (oid_is(type, kOidTrustedKeyUsage)) {
        entry.isTrusted = true;
        return true;
    }
    char text[kOidText];
    oid_text(type, text);
    append_text(entry.attributes, entry.attributes.empty() ? "" : " ");
    append_text(entry.attributes, text[0] == '\0' ? "?" : text);
    return true;
}

bool read_attributes(P12Entry& entry, const asn_Node* set) {
    for (AsnChildren attributes(set); !attributes.at_end();)
        if (!read_attribute(entry, attributes.take_sequence()))
            return false;
    return true;
}

// read_typed reads SEQUENCE { OID, [0] OCTET STRING }, which certBag and crlBag have. What has another type
// is of no use here.
bool read_typed(P12Entry& entry, const asn_Node* sequence, std::string_view usualType) {
    AsnChildren fields = AsnChildren::of_sequence(sequence);
    const asn_Node* type = fields.take_oid();
    AsnChildren value(fields.take_if(kAsnExplicit, 0));
    if (type == nullptr || !fields.at_end())
        return false;
    if (!oid_is(type, usualType)) {
        oid_text(type, entry.type);
        return entry.type[0] != '\0';
    }
    return asn_GetOctets(value.take_octets(), entry.content) && value.at_end();
}

// read_value reads the value of a bag by its kind.
[[nodiscard]] int read_value(P12Entry& entry, const asn_Node* bagId, const asn_Node* value) {
    const bool isSequence = asn_is(value, kAsnConstructed, kAsnSequence);
    if (oid_is(bagId, kOidKeyBag) || oid_is(bagId, kOidShroudedKeyBag)) {
        entry.kind = oid_is(bagId, kOidKeyBag) ? P12Kind::key : P12Kind::encryptedKey;
        entry.content = asn_EncodeElement(isSequence ? value : nullptr);
        if (entry.content.empty())
            return malformed(entry);
        if (entry.kind == P12Kind::encryptedKey)
            entry.scheme = p12_describe(AsnChildren(value).take_sequence());
        return 0;
    }
    if (oid_is(bagId, kOidCertBag)) {
        entry.kind = P12Kind::certificate;
        if (!read_typed(entry, value, kOidX509Certificate))
            return malformed(entry);
        return entry.is_x509() ? p12_open_certificate(entry) : 0;
    }
    if (oid_is(bagId, kOidCrlBag)) {
        entry.kind = P12Kind::crl;
        return read_typed(entry, value, kOidX509Crl) ? 0 : malformed(entry);
    }
    if (oid_is(bagId, kOidSecretBag)) {
        entry.kind = P12Kind::secret;
        oid_text(AsnChildren::of_sequence(value).take_oid(), entry.type);
        return entry.type[0] != '\0' ? 0 : malformed(entry);
    }
    oid_text(bagId, entry.type);
    return 0;
}

[[nodiscard]] int read_bags(P12Entries& entries, const asn_Node* safeContents, size_t safe, uint32_t depth) {
    for (AsnChildren bags(safeContents); !bags.at_end();) {
        AsnChildren fields(bags.take_sequence());
        const asn_Node* bagId = fields.take_oid();
        AsnChildren content(fields.take_if(kAsnExplicit, 0));
        const asn_Node* value = content.take();
        const asn_Node* attributes = fields.take_if(kAsnConstructed, kAsnSet);
        if (bagId == nullptr || value == nullptr || !content.at_end() || !fields.at_end())
            return err_fail(BAD_FORMAT_ERROR, "A bag behind entry %u is malformed",
                            static_cast<unsigned>(entries.count()));
        if (oid_is(bagId, kOidSafeContentsBag)) {
            if (depth == kMaxNestedBags)
                return err_fail(OUT_OF_RANGE_ERROR, "Bags are nested too deeply");
            if (!asn_is(value, kAsnConstructed, kAsnSequence))
                return err_fail(BAD_FORMAT_ERROR, "A bag of bags is malformed");
            if (const int error = read_bags(entries, value, safe, depth + 1))
                return error;
            continue;
        }
        if (entries.count() == P12Entries::kMost)
            return err_fail(OUT_OF_RANGE_ERROR, "More than %u entries",
                            static_cast<unsigned>(P12Entries::kMost));
        P12Entry& entry = entries.add();
        entry.safe = safe;
        if (const int error = read_value(entry, bagId, value))
            return error;
        if (!read_attributes(entry, attributes))
            return malformed(entry);
    }
    return 0;
}

} // namespace

int p12_read_bags(P12Entries& entries, const asn_Node* safeContents, size_t safe) {
    return read_bags(entries, safeContents, safe, 0);
}

} // namespace zul
