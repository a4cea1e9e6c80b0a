// Certification requests: PKCS #10 (RFC 2986).
#include "asn1/asn_build.h"
#include "asn1/asn_file.h"
#include "frame/err.h"
#include "frame/text.h"
#include "rsa/rsa_der.h"
#include "x509/fields/signature_algorithm.h"
#include "x509/make/key_argument.h"
#include "x509/make/make.h"
#include "x509/make/sign.h"
#include "x509/names/distinguished_name.h"
#include "zulcore.h"

namespace zul {

int make_request(const char* reqFile, const char* privateKey, const char* distName, const char* password,
                 int options) {
    const char* const algorithm = rsa_signature_algorithm(options);
    if (algorithm == nullptr)
        return BAD_FLAG_ERROR;
    AsnList subject;
    if (name_encode(distName, options, subject) == 0)
        return err_fail(BAD_PARAM_ERROR, "Invalid distinguished name string");
    RsaKey key;
    if (read_signing_key(privateKey, password, key) != 0)
        return err_fail(READ_ERROR, "Unable to read private key file\n");

    const bool attributes = (options & ZUL_X509_REQ_NOATTRS) == 0;
    AsnList info =
        asn_NewSequence(asn_LinkList(asn_NewInteger(0), std::move(subject), rsa_subject_public_key_info(key),
                                     attributes ? asn_NewExplicit(0, AsnList()) : AsnList()));
    AsnList request;
    if (const int error = x509_sign(std::move(info), algorithm, key, request))
        return err_fail(error, "Unable to sign certificate");
    const bool pem = (options & ZUL_X509_REQ_DER) == 0;
    const int error = asn_write_file(reqFile, request.head(), pem ? "NEW CERTIFICATE REQUEST" : nullptr,
                                     kPemLineLen, {.replaces = true, .input = privateKey});
    return error == CREATE_ERROR ? err_fail(error, "Cannot create file %s", shown_name(reqFile)) : error;
}

} // namespace zul
