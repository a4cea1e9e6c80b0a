// RFC 3279, RFC 4055, RFC 5758, RFC 8410.
#include "key/signature_identifier_read.h"

#include "frame/err.h"
#include "key/key_der.h"
#include "key/pss_rules.h"
#include "key/signature_oids.h"
#include "zulcore.h"

namespace zul {
namespace {

[[nodiscard]] int bad_parameters() {
    return err_fail(BAD_FORMAT_ERROR, "Invalid parameters of a signature algorithm");
}

// is_null_or_none: RFC 4055, 5 has NULL written, and both taken, for RSA.
bool is_null_or_none(DerView parameters) {
    DerView content;
    return parameters.empty() || (der_single(parameters, kDerNull, content) && content.empty());
}

[[nodiscard]] int read_pss(SignatureAlgorithm& algorithm, DerView parameters) {
    AsnList list;
    PssRules rules;
    // A signature has to say what it was made with: unlike a key's, its parameters may not be missing.
    if (!key_parse(parameters.data, parameters.size, list))
        return bad_parameters();
    if (const int error = pss_rules_read(rules, list.head()))
        return error;
    algorithm = {SignatureScheme::rsaPss, rules.digest, rules.mgfDigest, PssSalt::fixed, rules.leastSalt};
    return 0;
}

} // namespace

int signature_identifier_read(SignatureAlgorithm& algorithm, DerView oid, DerView parameters) {
    const std::string_view octets = oid.text();
    if (octets == key_kind_info(KeyKind::rsaPss).oid)
        return read_pss(algorithm, parameters);
    if (octets == key_kind_info(KeyKind::ed25519).oid) {
        algorithm = {SignatureScheme::ed25519, kDigestSha512, 0, PssSalt::digest, 0};
        return parameters.empty() ? 0 : bad_parameters();
    }
    for (const SignatureOid& row : kSignatureOids) {
        if (row.oid != octets)
            continue;
        algorithm = {row.scheme, row.digest, 0, PssSalt::digest, 0};
        const bool isGood =
            row.scheme == SignatureScheme::ecdsa ? parameters.empty() : is_null_or_none(parameters);
        return isGood ? 0 : bad_parameters();
    }
    return err_fail(NOT_SUPPORTED_ERROR, "Signature algorithm not supported");
}

bool signature_fits(const SignatureAlgorithm& algorithm, const Key& key) {
    switch (algorithm.scheme) {
    case SignatureScheme::rsaPkcs1:
        return key.kind == KeyKind::rsa;
    case SignatureScheme::rsaPss:
        return key.is_rsa() && (!key.pss.restricts || (algorithm.digest == key.pss.digest &&
                                                       algorithm.mgfDigest == key.pss.mgfDigest &&
                                                       algorithm.saltSize >= key.pss.leastSalt));
    case SignatureScheme::ecdsa:
        return key.is_ec();
    case SignatureScheme::ed25519:
    case SignatureScheme::ed25519ph:
        break;
    }
    return key.kind == KeyKind::ed25519;
}

} // namespace zul
