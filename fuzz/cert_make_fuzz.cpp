#include <cstdlib>
#include <cstring>
#include <string>

#include "asn1/asn_build.h"
#include "asn1/asn_encode.h"
#include "cert/fields/cert_extensions.h"
#include "cert/make/certificate_plan.h"
#include "cert/make/copied_extensions.h"
#include "cert/make/extension_values.h"
#include "cert/make/plan_extensions.h"
#include "cert/make/plan_rules.h"
#include "cert/make/plan_validity.h"
#include "cert/names/domain_name.h"
#include "cert/names/name_check.h"
#include "frame/err.h"
#include "zulcore.h"

// The input as a description, and as a request whose extensions are all copied: what is not refused makes
// names and extensions that the strict readers take. As a host name: its ASCII form is that of itself.

using namespace zul;

static void require(bool claim) {
    if (!claim)
        std::abort();
}

static void check_plan(CertificatePlan& plan, KeyKind kind) {
    Key key;
    key.kind = kind;
    if (plan_complete(plan, key) != 0)
        return;
    AsnList validity;
    const int error = plan_validity(validity, plan, nullptr, false);
    require(error == BAD_PARAM_ERROR || (error == 0 && !asn_Encode(validity).empty()));
    const SecretBuffer name = asn_Encode(asn_NewSequence(asn_CopyList(plan.subject.head())));
    require(name_check({name.data(), name.size()}) == 0);
    const SecretBuffer identifier(20), der = asn_Encode(plan_extensions(plan, identifier, identifier));
    CertificateView view;
    CertExtensions extensions;
    require(der_single({der.data(), der.size()}, kDerSequence, view.extensions));
    require(extensions_are_valid(view.extensions) && cert_extensions_read(view, extensions) == 0);
    require(extensions.isCa == plan.isCa.value_or(false) && extensions.keyUsage == plan.keyUsage.value_or(0));
}

static void check_description(const std::string& text, PlanKind kind) {
    for (const KeyKind keyKind : {KeyKind::rsa, KeyKind::p256, KeyKind::ed25519, KeyKind::x25519}) {
        CertificatePlan plan;
        plan.kind = kind;
        err_clear();
        const int error = certificate_plan_read(plan, text.c_str());
        require(error == 0 || (error == BAD_PARAM_ERROR && *err_text() != '\0'));
        if (error == 0)
            check_plan(plan, keyKind);
    }
}

static void check_request(DerView encoding) {
    RequestView request;
    if (request_view_read(encoding, request) != 0)
        return;
    CertificatePlan plan;
    plan.kind = PlanKind::issued;
    for (const char* type :
         {"subjectAltName", "keyUsage", "extKeyUsage", "basicConstraints", "tlsFeature", "1.2.3.4"})
        plan.copied.add(extension_type(type));
    const int error = plan_copy_extensions(plan, request);
    require(error == 0 || error == BAD_FORMAT_ERROR || error == BAD_PARAM_ERROR);
    DerView names;
    if (error != 0 || name_check(request.subject) != 0 || !der_single(request.subject, kDerSequence, names))
        return;
    require(certificate_plan_read(plan, "O=a") == 0);
    check_plan(plan, KeyKind::p256);
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    for (const PlanKind kind : {PlanKind::selfSigned, PlanKind::issued, PlanKind::request})
        check_description(text, kind);
    check_request({data, size});
    SecretBuffer ascii, again;
    if (domain_to_ascii(ascii, text, DomainForm::wildcard) == 0) {
        require(domain_to_ascii(again, {ascii.text(), ascii.size()}, DomainForm::wildcard) == 0);
        require(ascii.size() == again.size() && memcmp(ascii.data(), again.data(), again.size()) == 0);
    }
    return 0;
}
