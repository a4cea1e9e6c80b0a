#include "pfx/pfx_reader.h"

#include "asn1/asn_children.h"
#include "asn1/asn_element.h"
#include "asn1/asn_input.h"
#include "asn1/asn_parse.h"
#include "asn1/asn_value.h"
#include "asn1/byte_stream.h"
#include "frame/err.h"
#include "pfx/p12_oids.h"
#include "zulcore.h"

namespace zul {
namespace {

[[nodiscard]] int malformed() {
    return err_fail(INVALID_DATA_ERROR, "Invalid PFX structure");
}

// read_sequence parses octets that begin with a SEQUENCE.
bool read_sequence(const SecretBuffer& octets, AsnList& list) {
    ByteStream stream(octets.data(), octets.size());
    list = asn_Parse(stream, false, true);
    return asn_is(list.head(), kAsnConstructed, kAsnSequence);
}

// What lies inside the [0] that comes next.
AsnChildren explicit_content(AsnChildren& fields) {
    return AsnChildren(fields.take_if(kAsnExplicit, 0));
}

// A Finder looks into a SafeBag's value for what it wants.
enum class Found { no, yes, malformed, tooDeep };
using Finder = Found(const asn_Node* bagId, AsnChildren value, SecretBuffer& content);

Found find_certificate(const asn_Node* bagId, AsnChildren value, SecretBuffer& content) {
    if (!asn_OidIs(bagId, "pkcs-12-certBag"))
        return Found::no;
    AsnChildren fields(value.take_sequence());
    const asn_Node* certId = fields.take_oid();
    if (certId == nullptr)
        return Found::malformed;
    if (!asn_OidIs(certId, "x509Certificate"))
        return Found::no;
    AsnList certificate;
    return asn_GetOctets(explicit_content(fields).take_octets(), content) &&
                   read_sequence(content, certificate)
               ? Found::yes
               : Found::malformed;
}

Found find_key(const asn_Node* bagId, AsnChildren value, SecretBuffer& content) {
    if (!asn_OidIs(bagId, "pkcs-12-pkcs-8ShroudedKeyBag"))
        return Found::no;
    content = asn_EncodeElement(value.take_sequence());
    return content.empty() ? Found::malformed : Found::yes;
}

// look_into walks SafeContents in the order of its encoding and steps into bags that hold further bags.
// Elements there that are not SEQUENCEs are the attributes of such a bag.
Found look_into(const asn_Node* safeContents, Finder* finder, SecretBuffer& content) {
    constexpr uint32_t kLevelsOfBag = 3; // SafeBag, [0], SafeContents
    for (const asn_Node *node = safeContents->next, *next; node != nullptr; node = next) {
        next = asn_ElementEnd(node);
        if (!asn_is(node, kAsnConstructed, kAsnSequence))
            continue;
        AsnChildren fields(node);
        const asn_Node* bagId = fields.take_oid();
        if (bagId == nullptr)
            return Found::malformed;
        AsnChildren value = explicit_content(fields);
        if (oid_is(bagId, kOidSafeContentsBag)) {
            if ((node->level - safeContents->level) / kLevelsOfBag >= kMaxNestedBags)
                return Found::tooDeep;
            const asn_Node* inner = value.take_sequence();
            if (inner == nullptr || !value.at_end())
                return Found::malformed;
            next = inner->next;
        } else if (const Found found = finder(bagId, value, content); found != Found::no) {
            return found;
        }
    }
    return Found::no;
}

[[nodiscard]] int find(const SecretBuffer& safe, Finder* finder, SecretBuffer& content, const char* what) {
    AsnList list;
    if (!read_sequence(safe, list))
        return malformed();
    bool hasEncrypted = false;
    AsnChildren infos(list.head());
    while (const asn_Node* info = infos.take()) {
        AsnChildren fields(info);
        const asn_Node* type = fields.take_oid();
        hasEncrypted |= asn_OidIs(type, "encryptedData") || asn_OidIs(type, "envelopedData");
        if (!asn_OidIs(type, "data"))
            continue;
        SecretBuffer octets;
        AsnList safeContents;
        if (!asn_GetOctets(explicit_content(fields).take_octets(), octets) ||
            !read_sequence(octets, safeContents))
            return malformed();
        const Found found = look_into(safeContents.head(), finder, content);
        if (found == Found::tooDeep)
            return err_fail(INVALID_DATA_ERROR, "Bags of the PFX are nested too deeply");
        if (found != Found::no)
            return found == Found::yes ? 0 : malformed();
    }
    if (hasEncrypted)
        return err_fail(NOT_SUPPORTED_ERROR, "No %s outside the encrypted data, which cannot be read", what);
    return err_fail(NO_DATA_ERROR, "No %s in the PFX", what);
}

} // namespace

int PfxReader::open(const char* fileOrText) {
    if (const int error = asn_read_input(fileOrText, list_, kMaxPfxFile))
        return error;
    version_ = asn_GetInt(AsnChildren(list_.head()).take_integer());
    return version_ < 0 ? err_fail(INVALID_DATA_ERROR, "Not a valid PFX file") : 0;
}

const asn_Node* PfxReader::mac_data() const {
    AsnChildren fields(list_.head());
    fields.take_integer();
    fields.take_sequence();
    return fields.take_sequence();
}

int PfxReader::read_safe(SecretBuffer& safe) const {
    AsnChildren fields(list_.head());
    fields.take_integer();
    AsnChildren authSafe(fields.take_sequence());
    if (asn_OidIs(authSafe.take_oid(), "data") &&
        asn_GetOctets(explicit_content(authSafe).take_octets(), safe))
        return 0;
    return err_fail(INVALID_DATA_ERROR, "Cannot find ContentInfo data");
}

int pfx_find_certificate(const SecretBuffer& safe, SecretBuffer& certificate) {
    return find(safe, find_certificate, certificate, "certificate");
}

int pfx_find_key(const SecretBuffer& safe, SecretBuffer& encryptedPrivateKeyInfo) {
    return find(safe, find_key, encryptedPrivateKeyInfo, "encrypted private key");
}

} // namespace zul
