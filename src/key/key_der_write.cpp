// Writes keys: RFC 5208, 5280, 5480, 5915, 8410, 4055.
#include "asn1/asn_build.h"
#include "key/key_der.h"
#include "key/key_oids.h"
#include "key/pss_rules.h"
#include "rsa/rsa_der.h"

namespace zul {
namespace {

constexpr uint8_t kUncompressed = 4;

AsnList algorithm_of(const Key& key) {
    const std::string_view oid = key_kind_info(key.kind).oid;
    if (key.is_ec())
        return asn_NewSequence(asn_LinkList(oid_node(kOidEcPublicKey), oid_node(oid)));
    if (key.kind == KeyKind::rsa)
        return asn_NewSequence(asn_LinkList(oid_node(oid), asn_NewNull()));
    if (key.kind == KeyKind::rsaPss && key.pss.restricts)
        return asn_NewSequence(asn_LinkList(oid_node(oid), pss_rules_list(key.pss)));
    return asn_NewSequence(oid_node(oid));
}

// The public key as the BIT STRING holds it.
AsnList public_bits(const Key& key) {
    if (key.is_rsa())
        return asn_NewBitStringOf(0, rsa_public_key_list(*key.rsa));
    uint8_t bytes[1 + sizeof key.point] = {kUncompressed};
    const size_t size = key_kind_info(key.kind).publicBytes;
    memcpy(bytes + 1, key.point, size);
    return key.is_ec() ? asn_NewBitString(0, bytes, 1 + size) : asn_NewBitString(0, key.point, size);
}

AsnList ec_private_key(const Key& key, bool withCurve) {
    const KeyKindInfo& info = key_kind_info(key.kind);
    AsnList content =
        asn_LinkList(asn_NewInteger(1), asn_NewOctetString(key.secret.data(), info.secretBytes));
    if (withCurve)
        content = asn_Link(std::move(content), asn_NewExplicit(0, oid_node(info.oid)));
    return asn_NewSequence(asn_Link(std::move(content), asn_NewExplicit(1, public_bits(key))));
}

AsnList private_value(const Key& key) {
    if (key.is_rsa())
        return rsa_private_key_list(*key.rsa);
    return key.is_ec() ? ec_private_key(key, false)
                       : asn_NewOctetString(key.secret.data(), key_kind_info(key.kind).secretBytes);
}

} // namespace

AsnList key_public_info(const Key& key) {
    return asn_NewSequence(asn_LinkList(algorithm_of(key), public_bits(key)));
}

AsnList key_private_info(const Key& key) {
    return asn_NewSequence(
        asn_LinkList(asn_NewInteger(0), algorithm_of(key), asn_NewOctetStringOf(private_value(key))));
}

AsnList key_own_structure(const Key& key) {
    if (key.kind == KeyKind::rsa)
        return key.isPrivate ? rsa_private_key_list(*key.rsa) : rsa_public_key_list(*key.rsa);
    return key.is_ec() && key.isPrivate ? ec_private_key(key, true) : AsnList();
}

} // namespace zul
