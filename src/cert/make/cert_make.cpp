#include "cert/make/cert_make.h"

#include "asn1/asn_build.h"
#include "asn1/asn_encode.h"
#include "asn1/asn_file.h"
#include "cert/fields/cert_oids.h"
#include "cert/make/certificate_plan.h"
#include "cert/make/copied_extensions.h"
#include "cert/make/issuer_certificate.h"
#include "cert/make/plan_extensions.h"
#include "cert/make/plan_rules.h"
#include "cert/make/plan_validity.h"
#include "cert/make/subject_input.h"
#include "cert/names/name_check.h"
#include "frame/err.h"
#include "frame/text.h"
#include "key/key_der.h"
#include "key/key_oids.h"
#include "rng/rng.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr size_t kSerial = 16; // bytes of a random serial number

AsnList serial_number(const CertificatePlan& plan) {
    if (!plan.serial.empty())
        return asn_NewIntegerBytes(plan.serial.data(), plan.serial.size());
    uint8_t bytes[kSerial];
    rng_draw(bytes, sizeof bytes);
    bytes[0] = static_cast<uint8_t>((bytes[0] & 0x7F) | 0x40); // positive, and always of this length
    return asn_NewIntegerBytes(bytes, sizeof bytes);
}

struct WriteInputs {
    const char *key, *subject = nullptr, *issuer = nullptr; // arguments, which may be texts
};

// write_object replaces a file in one step, but never one that the object was made from.
[[nodiscard]] int write_object(const char* path, const AsnList& object, const char* label,
                               const WriteInputs& inputs, int options) {
    int error = CREATE_ERROR;
    const auto names_it = [path](const char* input) { return input != nullptr && is_same_file(input, path); };
    if (!names_it(inputs.subject) && !names_it(inputs.issuer))
        error = asn_write_file(path, object.head(), (options & ZUL_CERT_DER) != 0 ? nullptr : label,
                               kPemLineLen, {.replaces = true, .input = inputs.key});
    return error == CREATE_ERROR ? err_fail(error, "Cannot create file '%s'", shown_name(path)) : error;
}

// CertificateParts are what a certificate is put together from.
struct CertificateParts {
    AsnList issuer, publicKeyInfo;
    SecretBuffer authorityKeyIdentifier; // empty: that of the key itself
    const ValidityBounds* bounds = nullptr;
    bool mayExceedBounds = false;
};

[[nodiscard]] int make_certificate_object(AsnList& object, CertificatePlan& plan, const ObjectSigner& signer,
                                          CertificateParts parts) {
    AsnList validity;
    if (const int error = plan_validity(validity, plan, parts.bounds, parts.mayExceedBounds))
        return error;
    const SecretBuffer keyInfo = asn_Encode(parts.publicKeyInfo);
    const SecretBuffer keyIdentifier = key_identifier({keyInfo.data(), keyInfo.size()});
    AsnList extensions =
        plan_extensions(plan, keyIdentifier,
                        parts.authorityKeyIdentifier.empty() ? keyIdentifier : parts.authorityKeyIdentifier);
    return signer.sign(
        object, asn_NewSequence(asn_LinkList(
                    asn_NewExplicit(0, asn_NewInteger(2)), serial_number(plan), signer.identifier(),
                    std::move(parts.issuer), std::move(validity), asn_NewSequence(std::move(plan.subject)),
                    std::move(parts.publicKeyInfo), asn_NewExplicit(3, std::move(extensions)))));
}

// take_request puts into the plan what comes from the request.
[[nodiscard]] int take_request(CertificatePlan& plan, const RequestView& request) {
    if (const int error = plan_copy_extensions(plan, request))
        return error;
    if (plan.subject)
        return 0;
    DerView names;
    if (const int error = name_check(request.subject))
        return error;
    if (der_single(request.subject, kDerSequence, names))
        plan.subject = elements_of(names);
    return 0;
}

[[nodiscard]] int check_path_length(const CertificatePlan& plan, const IssuerCertificate& issuer) {
    const int most = issuer.extensions().pathLength;
    if (most < 0 || !plan.isCa.value_or(false))
        return 0;
    if (most == 0)
        return err_fail(ISSUER_ERROR, "The issuer's path length is 0: it issues to no authority");
    return plan.pathLength < most
               ? 0
               : err_fail(BAD_PARAM_ERROR, "The pathLength has to be below that of the issuer, %d", most);
}

// open_own begins an object of the signer's own key: the plan, and the key that it is completed with.
[[nodiscard]] int open_own(CertificatePlan& plan, ObjectSigner& signer, PlanKind kind, const char* privateKey,
                           const char* description) {
    plan.kind = kind;
    if (const int error = certificate_plan_read(plan, description))
        return error;
    if (const int error = signer.open(privateKey))
        return error;
    if (const int error = plan_complete(plan, signer.key()))
        return error;
    return signer.choose(plan.signature.text());
}

} // namespace

int cert_self_sign(const char* certFile, const char* privateKey, const char* description, int options) {
    if ((options & ~ZUL_CERT_DER) != 0)
        return err_unknown_option();
    CertificatePlan plan;
    ObjectSigner signer;
    if (const int error = open_own(plan, signer, PlanKind::selfSigned, privateKey, description))
        return error;
    CertificateParts parts;
    parts.issuer = asn_NewSequence(asn_CopyList(plan.subject.head()));
    parts.publicKeyInfo = key_public_info(signer.key());
    AsnList object;
    if (const int error = make_certificate_object(object, plan, signer, std::move(parts)))
        return error;
    return write_object(certFile, object, "CERTIFICATE", {privateKey}, options);
}

int cert_issue(const char* certFile, const char* issuerCert, const char* issuerKey, const char* subject,
               const char* description, int options) {
    if ((options & ~(ZUL_CERT_DER | ZUL_CERT_BEYOND_ISSUER)) != 0)
        return err_unknown_option();
    CertificatePlan plan;
    plan.kind = PlanKind::issued;
    if (const int error = certificate_plan_read(plan, description))
        return error;
    IssuerCertificate issuer;
    if (const int error = issuer.open(issuerCert))
        return error;
    if (const int error = issuer.check_issuer(kUsageKeyCertSign))
        return error;
    ObjectSigner signer;
    if (const int error = signer.open(issuerKey))
        return error;
    if (const int error = issuer.check_signer(signer))
        return error;
    SubjectInput input;
    if (const int error = input.open(subject))
        return error;
    if (input.request() != nullptr)
        if (const int error = take_request(plan, *input.request()))
            return error;
    if (const int error = plan_complete(plan, input.key()))
        return error;
    if (const int error = check_path_length(plan, issuer))
        return error;
    if (const int error = signer.choose(plan.signature.text()))
        return error;
    const ValidityBounds bounds{issuer.view().notBefore, issuer.view().notAfter};
    CertificateParts parts{issuer.name(), input.public_key_info(), issuer.key_identifier(), &bounds,
                           (options & ZUL_CERT_BEYOND_ISSUER) != 0};
    AsnList object;
    if (const int error = make_certificate_object(object, plan, signer, std::move(parts)))
        return error;
    return write_object(certFile, object, "CERTIFICATE", {issuerKey, subject, issuerCert}, options);
}

int cert_request(const char* requestFile, const char* privateKey, const char* description, int options) {
    if ((options & ~ZUL_CERT_DER) != 0)
        return err_unknown_option();
    CertificatePlan plan;
    ObjectSigner signer;
    if (const int error = open_own(plan, signer, PlanKind::request, privateKey, description))
        return error;
    AsnList attributes;
    if (AsnList extensions = plan_extensions(plan, {}, {}))
        attributes =
            asn_NewSequence(asn_Link(oid_node(kOidExtensionRequest), asn_NewSet(std::move(extensions))));
    AsnList object;
    if (const int error = signer.sign(
            object, asn_NewSequence(asn_LinkList(asn_NewInteger(0), asn_NewSequence(std::move(plan.subject)),
                                                 key_public_info(signer.key()),
                                                 asn_NewExplicit(0, std::move(attributes))))))
        return error;
    return write_object(requestFile, object, "CERTIFICATE REQUEST", {privateKey}, options);
}

} // namespace zul
