#include "key/pss_rules.h"

#include "asn1/asn_children.h"
#include "asn1/asn_value.h"
#include "frame/err.h"
#include "hash/digest.h"
#include "key/digest_oid.h"
#include "key/key_oids.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr uint32_t kDefaultSalt = 20, kMaxSalt = 8192; // no modulus has room for more
constexpr uint32_t kFields = 4;

[[nodiscard]] int bad_format() {
    return err_fail(BAD_FORMAT_ERROR, "Invalid RSASSA-PSS parameters");
}

[[nodiscard]] int read_mask(int& digest, const asn_Node* algorithm) {
    AsnChildren children(algorithm);
    const asn_Node* oid = children.take_oid();
    const asn_Node* hash = children.take_sequence();
    if (oid == nullptr || hash == nullptr || !children.at_end())
        return bad_format();
    if (!oid_is(oid, kOidMgf1))
        return err_fail(NOT_SUPPORTED_ERROR, "Mask function of the RSASSA-PSS parameters not supported");
    return digest_algorithm_read(&digest, hash);
}

[[nodiscard]] int read_field(PssRules& rules, uint32_t field, const asn_Node* value) {
    if (field < 2) {
        if (!asn_is(value, kAsnConstructed, kAsnSequence))
            return bad_format();
        return field == 0 ? digest_algorithm_read(&rules.digest, value) : read_mask(rules.mgfDigest, value);
    }
    const bool isWhole = asn_is(value, kAsnUniversal, kAsnInteger) && value->length > 0 &&
                         value->data[0] < 0x80 && value->length <= 4 &&
                         (value->length == 1 || value->data[0] != 0 || value->data[1] >= 0x80);
    const int64_t number = isWhole ? asn_GetInt(value) : -1;
    if (number < 0 || number > kMaxSalt || (field == 3 && number != 1))
        return bad_format();
    if (field == 2)
        rules.leastSalt = static_cast<uint32_t>(number);
    return 0;
}

} // namespace

int pss_rules_read(PssRules& rules, const asn_Node* parameters) {
    rules = {};
    if (parameters == nullptr)
        return 0;
    rules = {true, kDigestSha1, kDigestSha1, kDefaultSalt};
    if (!asn_is(parameters, kAsnConstructed, kAsnSequence))
        return bad_format();
    AsnChildren fields(parameters);
    for (uint32_t field = 0; field < kFields; field++) {
        const asn_Node* tagged = fields.take_if(kAsnExplicit, field);
        if (tagged == nullptr)
            continue;
        AsnChildren inside(tagged);
        const asn_Node* value = inside.take();
        if (value == nullptr || !inside.at_end())
            return bad_format();
        if (const int error = read_field(rules, field, value))
            return error;
    }
    return fields.at_end() ? 0 : bad_format();
}

AsnList pss_rules_list(const PssRules& rules) {
    if (!rules.restricts)
        return {};
    AsnList fields;
    if (rules.digest != kDigestSha1)
        fields = asn_Link(std::move(fields), asn_NewExplicit(0, digest_algorithm_list(rules.digest)));
    if (rules.mgfDigest != kDigestSha1)
        fields =
            asn_Link(std::move(fields),
                     asn_NewExplicit(1, asn_NewSequence(asn_LinkList(
                                            oid_node(kOidMgf1), digest_algorithm_list(rules.mgfDigest)))));
    if (rules.leastSalt != kDefaultSalt)
        fields = asn_Link(std::move(fields), asn_NewExplicit(2, asn_NewInteger(rules.leastSalt)));
    return asn_NewSequence(std::move(fields));
}

} // namespace zul
