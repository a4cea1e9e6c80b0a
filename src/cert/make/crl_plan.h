#pragma once
#include <ctime>
#include <optional>

#include "asn1/asn_node.h"
#include "cert/make/crl_number.h"
#include "cert/make/time_value.h"
#include "frame/memory.h"

namespace zul {

// CrlPlan is what a description says about a CRL. What was not given is empty.
struct CrlPlan {
    std::optional<CrlNumber> number, deltaFrom;
    bool isDelta = false; // to the earlier list
    std::optional<tm> thisUpdate, nextUpdate;
    std::optional<TimeSpan> span;

    // issuingDistributionPoint
    AsnList pointNames; // GeneralNames
    bool onlyUser = false, onlyCa = false, onlyAttribute = false, isIndirect = false;
    uint32_t onlyReasons = 0; // ReasonFlags
    bool has_scope() const {
        return pointNames || onlyUser || onlyCa || onlyAttribute || isIndirect || onlyReasons != 0;
    }

    AsnList freshestPoints; // DistributionPoints
    AsnList issuerAccess;   // AccessDescriptions
    std::optional<tm> expiredSince, dropBefore;
    AsnList otherExtensions; // Extensions
    SecretBuffer signature;
};

// crl_plan_read reads a description (zulcore.h has its keywords), null or empty for none: 0, or
// BAD_PARAM_ERROR with a text.
[[nodiscard]] int crl_plan_read(CrlPlan& plan, const char* description);

} // namespace zul
