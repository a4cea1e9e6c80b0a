// Certificates: RFC 5280, 4.1.
#include <cstring>

#include "asn1/asn_build.h"
#include "asn1/asn_file.h"
#include "frame/err.h"
#include "frame/text.h"
#include "rsa/rsa_der.h"
#include "x509/fields/certificate_extensions.h"
#include "x509/fields/signature_algorithm.h"
#include "x509/fields/subject_public_key.h"
#include "x509/input/x509_input.h"
#include "x509/make/certificate_validity.h"
#include "x509/make/extension_build.h"
#include "x509/make/extension_text.h"
#include "x509/make/key_argument.h"
#include "x509/make/make.h"
#include "x509/make/sign.h"
#include "x509/names/distinguished_name.h"
#include "x509/verify/verify.h"
#include "zulcore.h"

namespace zul {
namespace {

class CertificateMaker {
  public:
    explicit CertificateMaker(const CertificateOrder& order)
        : order_(order), algorithm_(rsa_signature_algorithm(order.options)) {}
    [[nodiscard]] int make();

  private:
    bool is_self_signed() const { return order_.issuerCert == nullptr; }
    bool has(int option) const { return (order_.options & option) != 0; }

    [[nodiscard]] int check_inputs() const;
    [[nodiscard]] int read_inputs();
    [[nodiscard]] int read_names();
    [[nodiscard]] int read_request(SecretBuffer& name);
    [[nodiscard]] int read_issuer_key();
    [[nodiscard]] int read_issuer();
    [[nodiscard]] int read_subject_key();
    AsnList serial_number() const;
    AsnList extensions() const;
    AsnList to_be_signed(const tm& notBefore, const tm& notAfter);

    const CertificateOrder& order_;
    const char* algorithm_;
    AsnList subject_;
    CertificateText text_;
    RsaKey issuerKey_, subjectKey_; // self-signed: issuerKey_ alone
    AsnList issuer_;
    SecretBuffer issuerKeyIdentifier_;
    bool fromRequest_ = false;
};

[[nodiscard]] int cannot_open(const char* what, const char* name) {
    err_set_text("Unable to open %s file '%s'", what, shown_name(name));
    return OPEN_ERROR;
}

// check_inputs tells of what cannot be opened.
int CertificateMaker::check_inputs() const {
    if (!argument_opens(order_.issuerKey, kLongestKeyName))
        return cannot_open("issuer's private key", order_.issuerKey);
    if (is_self_signed())
        return 0;
    if (!argument_opens(order_.subjectKey, kLongestKeyName))
        return cannot_open("subject's public key", order_.subjectKey);
    if (!argument_opens(order_.issuerCert, kLongestCertificateName))
        return cannot_open("issuer's certificate", order_.issuerCert);
    return 0;
}

// read_request takes the key of a request and its name as text. The request must be signed with that key.
int CertificateMaker::read_request(SecretBuffer& name) {
    AsnList request;
    if (const int error = x509_read_request(order_.subjectKey, request))
        return error;
    const RequestFields fields = request_fields(request.head());
    if (public_key_type(fields.subjectPublicKeyInfo) != PublicKeyType::rsa) {
        char algorithm[kAlgorithmName];
        return err_fail(NOT_SUPPORTED_ERROR, "Unsupported key algorithm '%s': require `rsaEncryption'",
                        public_key_algorithm(fields.subjectPublicKeyInfo, algorithm));
    }
    const int state = verify_object(fields.subjectPublicKeyInfo, request.head(), order_.subjectKey);
    if (state != 0)
        return err_fail(state > 0 ? state : SIGNATURE_ERROR, "Signature is invalid");
    if (name_text(fields.subject, nullptr, 0, name) != 0)
        return err_fail(INVALID_DATA_ERROR, "Invalid distinguished name");
    if (!rsa_public_key_of(fields.subjectPublicKeyInfo, subjectKey_))
        return err_fail(INVALID_DATA_ERROR, "Error with subject public key info");
    fromRequest_ = true;
    return 0;
}

int CertificateMaker::read_names() {
    SecretBuffer requested;
    const char* name = order_.distName;
    if (is_missing(name)) {
        if (const int error = read_request(requested))
            return error;
        name = requested.empty() ? "" : requested.text();
    }
    if (name_encode(name, order_.options, subject_) == 0)
        return err_fail(BAD_PARAM_ERROR, "Invalid distinguished name string");
    return read_certificate_text(order_.extensions, text_);
}

int CertificateMaker::read_issuer_key() {
    if (read_signing_key(order_.issuerKey, order_.password, issuerKey_) == 0)
        return 0;
    return err_fail(DECRYPT_ERROR, "Unable to read private key data");
}

int CertificateMaker::read_issuer() {
    AsnList certificate;
    const int error = x509_read_certificate(order_.issuerCert, certificate);
    if (error == OPEN_ERROR)
        return cannot_open("issuer's certificate", order_.issuerCert);
    if (error == READ_ERROR)
        return error;
    if (error == 0) {
        const CertificateFields fields = certificate_fields(certificate.head());
        issuer_ = asn_CopyElement(fields.subject);
        if (has(ZUL_X509_AUTHKEYID))
            issuerKeyIdentifier_ = subject_key_identifier(fields);
    }
    return issuer_ ? 0 : err_fail(INVALID_DATA_ERROR, "Invalid DN in issuer certificate");
}

int CertificateMaker::read_subject_key() {
    const int error = fromRequest_ ? 0 : read_public_key(order_.subjectKey, subjectKey_);
    if (error != 0)
        return err_fail(error, "Unable to read public key file '%s'", shown_name(order_.subjectKey));
    return error;
}

AsnList CertificateMaker::serial_number() const {
    const SecretBuffer& bytes = text_.serialNumber;
    return bytes.empty() ? asn_NewInteger(static_cast<uint32_t>(order_.certNum))
                         : asn_NewIntegerBytes(bytes.data(), bytes.size());
}

AsnList CertificateMaker::extensions() const {
    return build_extensions({
        .basicConstraints = !has(ZUL_X509_NO_BASIC),
        .isCa = is_self_signed() || has(ZUL_X509_SET_CA),
        .keyUsageFlags = static_cast<uint32_t>(order_.keyUsageFlags),
        .authorityKeyIdentifier = issuerKeyIdentifier_,
        .subjectKeyIdentifier = text_.subjectKeyIdentifier,
        .emailAddress = text_.emailAddress,
    });
}

AsnList CertificateMaker::to_be_signed(const tm& notBefore, const tm& notAfter) {
    const bool version1 = has(ZUL_X509_VERSION1);
    if (is_self_signed())
        issuer_ = asn_CopyList(subject_.head());
    return asn_NewSequence(asn_LinkList(
        version1 ? AsnList() : asn_NewExplicit(0, asn_NewInteger(2)), serial_number(),
        rsa_signature_algorithm_identifier(algorithm_), std::move(issuer_),
        asn_NewSequence(asn_LinkList(asn_NewTime(notBefore), asn_NewTime(notAfter))), std::move(subject_),
        rsa_subject_public_key_info(is_self_signed() ? issuerKey_ : subjectKey_),
        version1 ? AsnList() : extensions()));
}

int CertificateMaker::read_inputs() {
    int error = read_names();
    if (error == 0)
        error = read_issuer_key();
    if (error == 0 && !is_self_signed())
        error = read_issuer();
    if (error == 0 && !is_self_signed())
        error = read_subject_key();
    return error;
}

int CertificateMaker::make() {
    if (algorithm_ == nullptr)
        return err_fail(BAD_FLAG_ERROR, "Invalid signature option");
    tm notBefore, notAfter;
    int error = read_inputs();
    if (error == 0)
        error = certificate_validity(text_, order_.yearsValid, &notBefore, &notAfter);
    if (error != 0) {
        // A missing file goes before all else that is wrong, and is looked for only then: opening a file
        // twice costs as much as encoding the certificate.
        const int missing = check_inputs();
        return missing != 0 ? missing : error;
    }

    AsnList certificate;
    error = x509_sign(to_be_signed(notBefore, notAfter), algorithm_, issuerKey_, certificate);
    if (error != 0)
        return err_fail(error, "Error creating signature");
    error =
        asn_write_file(order_.newFile, certificate.head(), has(ZUL_X509_FORMAT_PEM) ? "CERTIFICATE" : nullptr,
                       kPemLineLen, {.input = order_.issuerKey});
    if (error == CREATE_ERROR)
        return err_fail(error, "Cannot create file '%s'", shown_name(order_.newFile));
    return error;
}

} // namespace

int make_certificate(const CertificateOrder& order) {
    return CertificateMaker(order).make();
}

} // namespace zul
