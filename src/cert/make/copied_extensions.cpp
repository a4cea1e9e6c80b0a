#include "cert/make/copied_extensions.h"

#include "asn1/asn_build.h"
#include "cert/fields/cert_extensions.h"
#include "cert/fields/cert_oids.h"
#include "cert/fields/general_name.h"
#include "cert/make/element_list.h"
#include "cert/make/extension_values.h"
#include "cert/make/issuer_certificate.h"
#include "cert/make/name_values.h"
#include "cert/names/name_check.h"
#include "encode/utf8_scalar.h"
#include "frame/err.h"
#include "key/key_oids.h"
#include "zulcore.h"

namespace zul {
namespace {

using Plan = CertificatePlan;

[[nodiscard]] int malformed() {
    return err_fail(BAD_FORMAT_ERROR, "A malformed value");
}

// Each value of an extension costs far more memory in the plan than in the request.
constexpr size_t kMostValues = 1 << 16;
[[nodiscard]] int too_many() {
    return err_fail(BAD_FORMAT_ERROR, "More than %d values", static_cast<int>(kMostValues));
}

[[nodiscard]] int given_already() {
    return err_fail(BAD_PARAM_ERROR, "The description gives it too");
}

constexpr std::string_view kOidPrincipalName = "\x2B\x06\x01\x04\x01\x82\x37\x14\x02\x03"sv;

// copy_other_name refuses texts that would deceive a reader. An address that an rfc822Name can hold has to
// stand there, where constraints of names apply (RFC 9598, 3).
[[nodiscard]] int copy_other_name(AsnList& name, const GeneralNameView& view) {
    DerReader fields(view.value);
    DerView type, value, string;
    if (!fields.take(kDerOid, type) || !fields.take(der_explicit(0), value) || !fields.at_end())
        return malformed();
    const bool isString = der_single(value, kDerUtf8String, string);
    const bool isMailbox = type.text() == kOidSmtpUtf8Mailbox;
    if (isMailbox || type.text() == kOidPrincipalName) {
        if (!isString)
            return malformed();
        const GeneralForm form = isMailbox ? GeneralForm::email : GeneralForm::principal;
        if (const int error = general_name_make(name, form, string.text()))
            return error;
        return asn_is(name.head(), kAsnExplicit, 0) ? 0 : malformed();
    }
    std::string_view rest = string.text();
    while (isString && !rest.empty()) {
        char32_t c = 0;
        if (!utf8_next(rest, c) || c < 0x20 || (c >= 0x7F && c < 0xA0))
            return malformed();
    }
    name = elements_of(view.encoding);
    return isString && string.empty() ? malformed() : 0;
}

// copy_name makes a name anew where a description has a form for it.
[[nodiscard]] int copy_name(AsnList& name, const GeneralNameView& view) {
    int error = 0;
    switch (view.type) {
    case GeneralNameType::dNSName:
        return general_name_make(name, GeneralForm::dns, view.value.text());
    case GeneralNameType::rfc822Name:
        return general_name_make(name, GeneralForm::email, view.value.text());
    case GeneralNameType::uniformResourceIdentifier:
        return general_name_make(name, GeneralForm::uri, view.value.text());
    case GeneralNameType::iPAddress:
        error = view.value.size == 4 || view.value.size == 16 ? 0 : malformed();
        break;
    case GeneralNameType::registeredID:
        break;
    case GeneralNameType::directoryName:
        error = name_check(view.value);
        break;
    case GeneralNameType::otherName:
        return copy_other_name(name, view);
    case GeneralNameType::x400Address:
    case GeneralNameType::ediPartyName:
        error = malformed();
        break;
    }
    if (error == 0)
        name = elements_of(view.encoding);
    return error;
}

[[nodiscard]] int copy_names(Plan& plan, DerView value) {
    DerView names;
    if (!der_single(value, kDerSequence, names) || names.empty())
        return malformed();
    GeneralNameReader reader(names);
    GeneralNameView view;
    for (size_t count = 0; reader.next(view); count++) {
        AsnList name;
        if (count == kMostValues)
            return too_many();
        if (copy_name(name, view) != 0)
            return BAD_FORMAT_ERROR; // the description is right: what the request holds is not
        list_add(plan.alternativeNames, std::move(name));
    }
    return reader.at_end() ? 0 : malformed();
}

[[nodiscard]] int copy_key_usage(Plan& plan, DerView value) {
    DerView bits;
    uint32_t usage = 0;
    if (plan.keyUsage)
        return given_already();
    constexpr uint32_t kKnown = 2 * kUsageDecipherOnly - 1;
    if (!der_single(value, kDerBitString, bits) || !der_flags(bits, usage) || usage == 0 || usage > kKnown)
        return malformed();
    plan.keyUsage = usage;
    return 0;
}

[[nodiscard]] int copy_purposes(Plan& plan, DerView value) {
    DerView purposes, oid;
    if (plan.extKeyUsage)
        return given_already();
    if (!der_single(value, kDerSequence, purposes) || !oid_list_is_valid(purposes))
        return malformed();
    DerReader reader(purposes);
    for (size_t count = 0; reader.take(kDerOid, oid); count++) {
        if (count == kMostValues)
            return too_many();
        list_add(plan.extKeyUsage, oid_node(oid.text()));
    }
    return 0;
}

[[nodiscard]] int copy_basic_constraints(Plan& plan, DerView value) {
    DerView fields, flag, number;
    bool isCa = false, found = false;
    if (plan.isCa || plan.pathLength >= 0)
        return given_already();
    if (!der_single(value, kDerSequence, fields))
        return malformed();
    DerReader reader(fields);
    if (!reader.take_optional(kDerBoolean, flag, found) || (found && !der_boolean(flag, isCa)) ||
        !reader.take_optional(kDerInteger, number, found) ||
        (found && !der_small_integer(number, plan.pathLength)) || !reader.at_end())
        return malformed();
    plan.isCa = isCa;
    return 0;
}

[[nodiscard]] int copy_features(Plan& plan, DerView value) {
    DerView features, number;
    int feature = 0;
    if (!der_single(value, kDerSequence, features) || features.empty())
        return malformed();
    DerReader reader(features);
    for (size_t count = 0; !reader.at_end(); count++) {
        if (count == kMostValues)
            return too_many();
        if (!reader.take(kDerInteger, number) || !der_small_integer(number, feature) || feature > 0xFFFF)
            return malformed();
        list_add(plan.tlsFeatures, asn_NewInteger(static_cast<uint32_t>(feature)));
    }
    return 0;
}

constexpr struct {
    std::string_view oid;
    int (*copy)(Plan& plan, DerView value);
} kCopies[] = {
    {kOidSubjectAltName, copy_names}, {kOidKeyUsage, copy_key_usage},
    {kOidExtKeyUsage, copy_purposes}, {kOidBasicConstraints, copy_basic_constraints},
    {kOidTlsFeature, copy_features},
};

[[nodiscard]] int copy_other(Plan& plan, const ExtensionView& extension) {
    if (extension_has_keyword(extension.oid.text()))
        return err_fail(BAD_PARAM_ERROR, "An extension of this type is not copied: the description gives it");
    DerReader reader(extension.value);
    DerElement element;
    if (!reader.take_any(element) || !reader.at_end())
        return malformed();
    AsnList copy = extension_make(extension.oid.text(), extension.isCritical, elements_of(extension.value));
    if (list_has_type(plan.otherExtensions, copy.head()->next))
        return given_already();
    plan.otherExtensions = asn_Link(std::move(plan.otherExtensions), std::move(copy));
    return 0;
}

[[nodiscard]] int copy_extension(Plan& plan, const ExtensionView& extension) {
    for (const auto& row : kCopies)
        if (extension.is(row.oid))
            return row.copy(plan, extension.value);
    return copy_other(plan, extension);
}

} // namespace

int plan_copy_extensions(CertificatePlan& plan, const RequestView& request) {
    for (const SecretBuffer& type : plan.copied) {
        ExtensionView extension;
        if (!find_extension(request.extensions, {type.text(), type.size()}, extension))
            continue;
        if (const int error = copy_extension(plan, extension)) {
            err_add_text("in an extension copied from the request");
            return error;
        }
    }
    plan_drop_repeats(plan);
    return 0;
}

} // namespace zul
