#pragma once
#include <string_view>

#include "asn1/asn_node.h"
#include "cert/make/crl_plan.h"

namespace zul {

using std::string_view_literals::operator""sv;

constexpr std::string_view kOidExpiredCertsOnCrl = "\x55\x1D\x3C"sv; // ITU-T X.509, 9.5.2.8

// issuing_point_encode gives the IssuingDistributionPoint (RFC 5280, 5.2.5) of a plan that has_scope.
SecretBuffer issuing_point_encode(const CrlPlan& plan);

// What a plan leaves open and the earlier list, the issuer or the clock settle.
struct CrlSettled {
    CrlNumber number;
    std::optional<CrlNumber> deltaBase;
    SecretBuffer issuingPoint; // a whole element, empty if there is none
    SecretBuffer authorityKeyIdentifier;
};

// crl_extension_list makes the Extensions of a list, which leaves none in the plan.
AsnList crl_extension_list(CrlPlan& plan, const CrlSettled& settled);

} // namespace zul
