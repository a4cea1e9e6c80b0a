#include "cert/make/crl_plan.h"

#include "asn1/asn_build.h"
#include "cert/fields/cert_oids.h"
#include "cert/make/crl_extension_list.h"
#include "cert/make/crl_reason.h"
#include "cert/make/description.h"
#include "cert/make/element_list.h"
#include "cert/make/extension_values.h"
#include "cert/make/name_values.h"
#include "frame/err.h"
#include "key/key_oids.h"
#include "zulcore.h"

namespace zul {
namespace {

using Plan = CrlPlan;
using Item = DescriptionItem;

[[nodiscard]] int bad(const char* why) {
    return err_fail(BAD_PARAM_ERROR, "%s", why);
}

template<std::optional<CrlNumber> Plan::*number>
int take_number(Plan& plan, const Item& item) {
    return (plan.*number).emplace().read_text(item.value);
}

template<bool Plan::*flag>
int take_flag(Plan& plan, const Item& item) {
    plan.*flag = item.isSet;
    return 0;
}

template<std::optional<tm> Plan::*time>
int take_time(Plan& plan, const Item& item) {
    return time_value_read((plan.*time).emplace(), item.value.data(), "00:00:00");
}

template<int (*read)(TimeSpan&, std::string_view)>
int take_span(Plan& plan, const Item& item) {
    if (plan.span)
        return bad("The time of the next list is given already");
    return read(plan.span.emplace(), item.value);
}

int take_point(Plan& plan, const Item& item) {
    AsnList name;
    const int error = general_name_read(name, item.value);
    if (error == 0)
        list_add(plan.pointNames, std::move(name));
    return error;
}

int take_reason(Plan& plan, const Item& item) {
    int reason = 0;
    if (const int error = crl_reason_read(reason, item.value))
        return error;
    const uint32_t flag = crl_reason_flag(reason);
    plan.onlyReasons |= flag;
    return flag != 0 ? 0 : bad("No list can be for this reason alone");
}

int take_freshest(Plan& plan, const Item& item) {
    AsnList point;
    const int error = distribution_point_make(point, item.value);
    if (error == 0)
        list_add(plan.freshestPoints, std::move(point));
    return error;
}

int take_issuer_access(Plan& plan, const Item& item) {
    AsnList access;
    const int error = access_make(access, "caIssuers", item.value);
    if (error == 0)
        list_add(plan.issuerAccess, std::move(access));
    return error;
}

int take_extension(Plan& plan, const Item& item) {
    AsnList extension;
    if (const int error = extension_make_any(extension, item.value))
        return error;
    const asn_Node* type = extension.head()->next;
    for (const std::string_view own :
         {kOidCrlNumber, kOidDeltaCrlIndicator, kOidIssuingDistributionPoint, kOidExpiredCertsOnCrl})
        if (oid_is(type, own))
            return bad("An extension that has keywords of its own");
    if (list_has_type(plan.otherExtensions, type))
        return bad("An extension that is given already");
    plan.otherExtensions = asn_Link(std::move(plan.otherExtensions), std::move(extension));
    return 0;
}

int take_signature(Plan& plan, const Item& item) {
    plan.signature.append(item.value.data(), item.value.size());
    return 0;
}

constexpr DescriptionForm kText = DescriptionForm::text, kList = DescriptionForm::list,
                          kFlag = DescriptionForm::flag;

constexpr DescriptionRow<Plan> kRows[] = {
    {{"number", kText, false}, take_number<&Plan::number>},
    {{"deltaFrom", kText, false}, take_number<&Plan::deltaFrom>},
    {{"delta", kFlag, false}, take_flag<&Plan::isDelta>},
    {{"thisUpdate", kText, false}, take_time<&Plan::thisUpdate>},
    {{"nextUpdate", kText, false}, take_time<&Plan::nextUpdate>},
    {{"days", kText, false}, take_span<time_days_read>},
    {{"valid", kText, false}, take_span<time_span_read>},
    {{"idp", kList, true}, take_point},
    {{"onlyUser", kFlag, false}, take_flag<&Plan::onlyUser>},
    {{"onlyCA", kFlag, false}, take_flag<&Plan::onlyCa>},
    {{"onlyAttribute", kFlag, false}, take_flag<&Plan::onlyAttribute>},
    {{"onlyReasons", kList, true}, take_reason},
    {{"indirect", kFlag, false}, take_flag<&Plan::isIndirect>},
    {{"freshestCrl", kList, true}, take_freshest},
    {{"caIssuers", kList, true}, take_issuer_access},
    {{"expiredCertsOnCRL", kText, false}, take_time<&Plan::expiredSince>},
    {{"dropBefore", kText, false}, take_time<&Plan::dropBefore>},
    {{"extension", kText, true}, take_extension},
    {{"signature", kText, false}, take_signature},
};

} // namespace

int crl_plan_read(CrlPlan& plan, const char* description) {
    if (const int error = description_read(description, kRows, plan))
        return error;
    for (AsnList Plan::*list : {&Plan::pointNames, &Plan::freshestPoints, &Plan::issuerAccess})
        list_drop_repeats(plan.*list);
    if (plan.nextUpdate && plan.span)
        return bad("The time of the next list is given twice");
    if (plan.onlyUser + plan.onlyCa + plan.onlyAttribute > 1)
        return bad("A list is for one at most of onlyUser, onlyCA and onlyAttribute");
    const bool isDelta = plan.isDelta || plan.deltaFrom;
    if (isDelta && plan.freshestPoints)
        return bad("A delta list has no freshestCrl"); // RFC 5280, 5.2.6
    if (isDelta && plan.dropBefore)
        return bad("A delta list drops nothing");
    return 0;
}

} // namespace zul
