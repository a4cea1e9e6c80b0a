// RFC 3279 (RSA, ECDSA with SHA-1), RFC 4055 (PSS, RSA with SHA-2), RFC 5758 (ECDSA with SHA-2), RFC 8017
// (RSA with SHA-512/256), RFC 8410 (Ed25519), RFC 9688 (SHA-3).
#include "key/signature_identifier.h"

#include "asn1/asn_build.h"
#include "frame/err.h"
#include "key/key_oids.h"
#include "key/pss_rules.h"
#include "key/signature_oids.h"
#include "rsa/rsa_pss.h"
#include "zulcore.h"

namespace zul {
namespace {

[[nodiscard]] int no_identifier() {
    return err_fail(NOT_SUPPORTED_ERROR, "Certificates and CRLs have no identifier for this algorithm");
}

[[nodiscard]] int pss_list(AsnList& list, const SignatureAlgorithm& algorithm, const Key& key) {
    PssRules parameters{true, algorithm.digest, algorithm.mgfDigest,
                        static_cast<uint32_t>(algorithm.saltSize)};
    if (algorithm.salt == PssSalt::digest)
        parameters.leastSalt = static_cast<uint32_t>(digest_length(algorithm.digest));
    size_t room = 0;
    if (algorithm.salt == PssSalt::most) {
        if (!pss_salt_room({key.rsa->bits - 1, algorithm.digest, algorithm.mgfDigest, 0}, &room))
            return err_fail(BAD_KEY_LEN_ERROR, "The RSA key is too short for the algorithm");
        parameters.leastSalt = static_cast<uint32_t>(room);
    }
    list = asn_NewSequence(
        asn_LinkList(oid_node(key_kind_info(KeyKind::rsaPss).oid), pss_rules_list(parameters)));
    return 0;
}

} // namespace

int signature_identifier_list(AsnList& list, const SignatureAlgorithm& algorithm, const Key& key) {
    if (algorithm.scheme == SignatureScheme::rsaPss)
        return algorithm.salt == PssSalt::any ? no_identifier() : pss_list(list, algorithm, key);
    if (algorithm.scheme == SignatureScheme::ed25519) {
        list = asn_NewSequence(oid_node(key_kind_info(KeyKind::ed25519).oid));
        return 0;
    }
    for (const SignatureOid& row : kSignatureOids) {
        if (row.scheme != algorithm.scheme || row.digest != algorithm.digest)
            continue;
        const bool hasNull = algorithm.scheme == SignatureScheme::rsaPkcs1;
        list = asn_NewSequence(asn_LinkList(oid_node(row.oid), hasNull ? asn_NewNull() : AsnList()));
        return 0;
    }
    return no_identifier();
}

} // namespace zul
