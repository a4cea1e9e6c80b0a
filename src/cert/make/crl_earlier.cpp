#include "cert/make/crl_earlier.h"

#include <cstring>

#include "cert/fields/cert_oids.h"
#include "cert/names/name_match.h"
#include "frame/err.h"
#include "key/signature.h"
#include "key/signature_identifier_read.h"
#include "zulcore.h"

namespace zul {

int EarlierCrl::open(const char* fileOrText, const IssuerCertificate& issuer) {
    const int error = read(fileOrText, issuer);
    if (error != 0)
        err_add_text("in the earlier list");
    return error;
}

int EarlierCrl::read(const char* fileOrText, const IssuerCertificate& issuer) {
    if (const int error = list_.add_argument(fileOrText, strlen(fileOrText)))
        return error;
    if (list_[0].kind != ObjectKind::crl)
        return err_fail(BAD_FORMAT_ERROR, "Not a CRL");
    if (const int error = crl_view_read(list_[0].der, view_))
        return error;
    if (const int error = crl_extensions_read(view_, extensions_))
        return error;
    if (!names_match(view_.issuer, issuer.view().subject))
        return err_fail(NO_MATCH_ERROR, "Another issuer than the certificate's");
    if (extensions_.unknownCritical.data != nullptr)
        return err_fail(NOT_SUPPORTED_ERROR, "An unknown critical extension");
    return check_signature(issuer);
}

int EarlierCrl::check_signature(const IssuerCertificate& issuer) const {
    SignatureAlgorithm algorithm;
    const AlgorithmView& identifier = view_.signatureAlgorithm;
    if (const int error = signature_identifier_read(algorithm, identifier.oid, identifier.parameters))
        return error;
    if (!(identifier.encoding == view_.innerAlgorithm.encoding) || view_.unusedBits != 0 ||
        !signature_fits(algorithm, issuer.key()))
        return err_fail(SIGNATURE_ERROR, "The signature is not of the issuer's key");
    SignatureBytes input(view_.toBeSigned.data, view_.toBeSigned.size);
    return signature_check(view_.signature.data, view_.signature.size, issuer.key(), algorithm, input, 0);
}

DerView EarlierCrl::issuing_point() const {
    ExtensionView extension;
    return find_extension(view_.extensions, kOidIssuingDistributionPoint, extension) ? extension.value
                                                                                     : DerView();
}

} // namespace zul
