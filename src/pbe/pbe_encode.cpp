#include "asn1/asn_build.h"
#include "pbe/pbe_params.h"

namespace zul {

namespace {

AsnList salt_and_iterations(const PbeParams& params) {
    return asn_LinkList(asn_NewOctetString(params.salt.data(), params.salt.size()),
                        asn_NewInteger(params.iterations));
}

// DER omits default values, so the default PRF of RFC 8018 is omitted.
AsnList pbkdf2_algorithm(const PbeParams& params) {
    AsnList content = salt_and_iterations(params);
    if (params.prf != pbe_prf("hmacWithSHA1")) {
        AsnList prf = asn_NewSequence(asn_LinkList(asn_NewOid(params.prf->name), asn_NewNull()));
        content = asn_Link(std::move(content), std::move(prf));
    }
    return asn_NewSequence(asn_LinkList(asn_NewOid("pkcs5PBKDF2"), asn_NewSequence(std::move(content))));
}

AsnList cipher_algorithm(const PbeParams& params) {
    return asn_NewSequence(asn_LinkList(asn_NewOid(block_cipher(params.cipher).cbcName),
                                        asn_NewOctetString(params.iv.data(), params.ivLength)));
}

} // namespace

AsnList pbe_algorithm_list(const PbeParams& params) {
    AsnList content = params.scheme->kind == PbeKind::pbes2
                          ? asn_LinkList(pbkdf2_algorithm(params), cipher_algorithm(params))
                          : salt_and_iterations(params);
    return asn_NewSequence(
        asn_LinkList(asn_NewOid(params.scheme->name), asn_NewSequence(std::move(content))));
}

} // namespace zul
