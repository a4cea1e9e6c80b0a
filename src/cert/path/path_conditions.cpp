#include "cert/path/path_conditions.h"

#include <iterator>

#include "asn1/oid_dotted.h"
#include "cert/fields/cert_oids.h"
#include "cert/make/description.h"
#include "cert/make/time_value.h"
#include "cert/names/subject_names.h"
#include "frame/err.h"
#include "frame/text.h"
#include "platform/platform.h"
#include "x509/names/pair_reader.h"
#include "zulcore.h"

namespace zul {

namespace {

constexpr int kMaxDepth = 100;
constexpr char kConditions[] = "time, host, email, ip, purpose, policy, explicitPolicy, inhibitMapping, "
                               "inhibitAnyPolicy, maxDepth, revocation, anchor";

using C = PathConditions;
using Item = DescriptionItem;

template<class Value>
struct Word {
    const char* name;
    Value value;
};
constexpr Word<RevocationDemand> kDemands[] = {{"none", RevocationDemand::none},
                                               {"known", RevocationDemand::known},
                                               {"leaf", RevocationDemand::leaf},
                                               {"all", RevocationDemand::all}};
constexpr Word<PathPurpose> kPurposes[] = {
    {"any", PathPurpose::any},     {"server", PathPurpose::server}, {"client", PathPurpose::client},
    {"email", PathPurpose::email}, {"code", PathPurpose::code},     {"timestamp", PathPurpose::timestamp},
    {"ocsp", PathPurpose::ocsp}};
constexpr Word<bool> kAnchors[] = {{"certificate", true}, {"key", false}};

// read_word looks a value up; the text of a failure lists the words.
template<class Value, size_t count>
[[nodiscard]] int read_word(Value& value, const Word<Value> (&words)[count], std::string_view text) {
    SecretBuffer list;
    for (const Word<Value>& word : words) {
        if (same_word(text, word.name)) {
            value = word.value;
            return 0;
        }
        const std::string_view name = word.name;
        if (!list.empty())
            list.append(", ", 2);
        list.append(name.data(), name.size());
    }
    return err_fail(BAD_PARAM_ERROR, "The value is one of: %s", list.text());
}

void copy_text(SecretBuffer& copy, std::string_view text) {
    copy = SecretBuffer();
    copy.append(text.data(), text.size());
}

[[nodiscard]] int read_host(C& conditions, const Item& item) {
    ReferenceForm form;
    copy_text(conditions.host, item.value);
    if (const int error = reference_form(item.value, form))
        return error;
    return form != ReferenceForm::email
               ? 0
               : err_fail(BAD_PARAM_ERROR, "An e-mail address is not the name of a host");
}

[[nodiscard]] int read_email(C& conditions, const Item& item) {
    ReferenceForm form;
    copy_text(conditions.email, item.value);
    if (const int error = reference_form(item.value, form))
        return error;
    return form == ReferenceForm::email ? 0 : err_fail(BAD_PARAM_ERROR, "Not an e-mail address");
}

[[nodiscard]] int read_ip(C& conditions, const Item& item) {
    ReferenceForm form;
    copy_text(conditions.ip, item.value);
    if (reference_form(item.value, form) == 0 && form == ReferenceForm::address)
        return 0;
    err_set_text("%s", "");
    return err_fail(BAD_PARAM_ERROR, "Not an IP address");
}

[[nodiscard]] int read_time(C& conditions, const Item& item) {
    tm time;
    if (const int error = time_value_read(time, item.value.data(), "00:00:00"))
        return error;
    conditions.time = time_seconds(time);
    return 0;
}

[[nodiscard]] int read_policy(C& conditions, const Item& item) {
    const AsnList oid = oid_from_dotted(item.value);
    const asn_Node* node = oid.head();
    if (node == nullptr)
        return err_fail(BAD_PARAM_ERROR, "A policy is a dotted object identifier");
    SecretBuffer octets;
    octets.append(node->data, node->length);
    conditions.policies.add(std::move(octets));
    return 0;
}

[[nodiscard]] int read_depth(C& conditions, const Item& item) {
    int number = 0;
    for (const char c : item.value)
        number = c >= '0' && c <= '9' && number <= kMaxDepth ? 10 * number + (c - '0') : kMaxDepth + 1;
    if (number > kMaxDepth)
        return err_fail(BAD_PARAM_ERROR, "The value is a number from 0 to %d", kMaxDepth);
    conditions.maxDepth = number;
    return 0;
}

constexpr DescriptionRow<C> kRows[] = {
    {{"time", DescriptionForm::text, false}, read_time},
    {{"host", DescriptionForm::text, false}, read_host},
    {{"email", DescriptionForm::text, false}, read_email},
    {{"ip", DescriptionForm::text, false}, read_ip},
    {{"purpose", DescriptionForm::text, false},
     [](C& c, const Item& i) { return read_word(c.purpose, kPurposes, i.value); }},
    {{"policy", DescriptionForm::list, true}, read_policy},
    {{"explicitPolicy", DescriptionForm::flag, false},
     [](C& c, const Item& i) { return c.needsExplicitPolicy = i.isSet, 0; }},
    {{"inhibitMapping", DescriptionForm::flag, false},
     [](C& c, const Item& i) { return c.inhibitsMapping = i.isSet, 0; }},
    {{"inhibitAnyPolicy", DescriptionForm::flag, false},
     [](C& c, const Item& i) { return c.inhibitsAnyPolicy = i.isSet, 0; }},
    {{"maxDepth", DescriptionForm::text, false}, read_depth},
    {{"revocation", DescriptionForm::text, false},
     [](C& c, const Item& i) {
         c.hasRevocation = true;
         return read_word(c.revocation, kDemands, i.value);
     }},
    {{"anchor", DescriptionForm::text, false},
     [](C& c, const Item& i) { return read_word(c.anchorIsCertificate, kAnchors, i.value); }},
};

int64_t now() {
    constexpr uint64_t kTicks = 10'000'000;
    constexpr int64_t kFrom1601To1970 = 11'644'473'600;
    return static_cast<int64_t>(platform::system_time() / kTicks) - kFrom1601To1970;
}

// What a purpose asks for. keyUsage has to have one of the bits.
struct PurposeRules {
    PathPurpose purpose;
    std::string_view oid;
    uint32_t keyUsage;
    bool isDemanded;  // extKeyUsage may not be missing (RFC 3161, 2.3; RFC 6960, 4.2.2.2)
    bool isInherited; // an extKeyUsage of the authorities above has to have it too
    bool isAlone;     // extKeyUsage of the end entity is critical and has no other purpose (RFC 3161, 2.3)
};
constexpr PurposeRules kRules[] = {
    {PathPurpose::server, kOidServerAuth, kUsageDigitalSignature | kUsageKeyEncipherment | kUsageKeyAgreement,
     false, true, false},
    {PathPurpose::client, kOidClientAuth, kUsageDigitalSignature | kUsageKeyAgreement, false, true, false},
    {PathPurpose::email, kOidEmailProtection,
     kUsageDigitalSignature | kUsageNonRepudiation | kUsageKeyEncipherment | kUsageKeyAgreement, false, true,
     false},
    {PathPurpose::code, kOidCodeSigning, kUsageDigitalSignature, false, true, false},
    {PathPurpose::timestamp, kOidTimeStamping, kUsageDigitalSignature | kUsageNonRepudiation, true, true,
     true},
    // The authority that issues a responder's certificate issues certificates for other purposes.
    {PathPurpose::ocsp, kOidOcspSigning, kUsageDigitalSignature | kUsageNonRepudiation, true, false, false},
};

const PurposeRules* rules_of(PathPurpose purpose) {
    for (const PurposeRules& rules : kRules)
        if (rules.purpose == purpose)
            return &rules;
    return nullptr;
}

// has_purpose: where the purpose has to be named, anyExtendedKeyUsage does not stand for it.
bool has_purpose(const CertExtensions& extensions, const PurposeRules& rules) {
    return oid_list_has(extensions.extKeyUsage, rules.oid) ||
           (!rules.isDemanded && oid_list_has(extensions.extKeyUsage, kOidAnyExtKeyUsage));
}

bool oid_list_is_single(DerView content) {
    DerView oid;
    return der_single(content, kDerOid, oid);
}

} // namespace

int path_conditions_read(PathConditions& conditions, const char* text) {
    conditions.time = now();
    return description_read<C>(text, kRows, conditions, [](C&, const DescriptionReader&, const Item&) {
        return err_fail(BAD_PARAM_ERROR, "Unknown condition (known: %s)", kConditions);
    });
}

const char* purpose_name(PathPurpose purpose) {
    return kPurposes[static_cast<size_t>(purpose)].name;
}

const char* demand_name(RevocationDemand demand) {
    return kDemands[static_cast<size_t>(demand)].name;
}

int check_leaf_purpose(const CertExtensions& extensions, PathPurpose purpose) {
    const PurposeRules* const rules = rules_of(purpose);
    if (rules == nullptr)
        return 0;
    const bool isMissing = extensions.extKeyUsage.data == nullptr;
    if (isMissing ? rules->isDemanded : !has_purpose(extensions, *rules))
        return err_fail(NO_MATCH_ERROR, "extKeyUsage does not allow the purpose '%s'", purpose_name(purpose));
    if (rules->isAlone && !(extensions.extKeyUsageIsCritical && oid_list_is_single(extensions.extKeyUsage)))
        return err_fail(NO_MATCH_ERROR,
                        "The purpose '%s' demands an extKeyUsage that is critical and has no other",
                        purpose_name(purpose));
    return extensions.allows(rules->keyUsage)
               ? 0
               : err_fail(NO_MATCH_ERROR, "keyUsage does not allow the purpose '%s'", purpose_name(purpose));
}

int check_authority_purpose(const CertExtensions& extensions, PathPurpose purpose) {
    const PurposeRules* const rules = rules_of(purpose);
    if (rules == nullptr || !rules->isInherited || extensions.extKeyUsage.data == nullptr ||
        has_purpose(extensions, *rules))
        return 0;
    return err_fail(NO_MATCH_ERROR, "extKeyUsage of an authority does not allow the purpose '%s'",
                    purpose_name(purpose));
}

} // namespace zul
