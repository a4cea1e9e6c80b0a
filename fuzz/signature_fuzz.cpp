#include <cstring>
#include <string>

#include "asn1/asn_encode.h"
#include "asn1/asn_parse.h"
#include "asn1/der_reader.h"
#include "frame/err.h"
#include "fuzz_support.h"
#include "key/ecdsa_der.h"
#include "key/signature.h"
#include "key/signature_identifier.h"
#include "key/signature_identifier_read.h"
#include "x509/verify/dsa.h"
#include "x509/verify/signature_check.h"
#include "zulcore.h"

// The input as a signature of every scheme under fixed keys, which it never is of this data; as an
// AlgorithmIdentifier, which is written as it was read; as a key and a signature of DSA or RSA, one after the
// other.

using namespace zul;
using fuzz::require;

static void check_identifier(const uint8_t* data, size_t size) {
    DerView fields, oid;
    if (!der_single({data, size}, kDerSequence, fields))
        return;
    DerReader reader(fields);
    if (!reader.take(kDerOid, oid))
        return;
    SignatureAlgorithm algorithm;
    err_clear();
    const int error = signature_identifier_read(algorithm, oid, reader.rest());
    require(error == 0 ||
            ((error == NOT_SUPPORTED_ERROR || error == BAD_FORMAT_ERROR) && *err_text() != '\0'));
    if (error != 0)
        return;
    Key key;
    for (const KeyKind kind : {KeyKind::rsa, KeyKind::p256, KeyKind::ed25519}) {
        key.kind = kind;
        AsnList list;
        if (!signature_fits(algorithm, key) || algorithm.scheme == SignatureScheme::rsaPss ||
            signature_identifier_list(list, algorithm, key) != 0)
            continue;
        const SecretBuffer der = asn_Encode(list);
        SignatureAlgorithm again;
        DerReader written({der.data(), der.size()});
        DerView content, type;
        require(written.take(kDerSequence, content));
        DerReader inner(content);
        require(inner.take(kDerOid, type) && signature_identifier_read(again, type, inner.rest()) == 0);
        require(again.scheme == algorithm.scheme && again.digest == algorithm.digest);
    }
}

struct FixedKey : Key {
    explicit FixedKey(KeyKind which) {
        kind = which;
        isPrivate = true;
        memset(secret.data(), 0x21, kMaxEcBytes);
        secret[0] = 0; // below the order of every curve
        key_make_public(*this);
    }
};

static void check_schemes(const uint8_t* data, size_t size) {
    static const FixedKey keys[] = {FixedKey(KeyKind::p256), FixedKey(KeyKind::p384), FixedKey(KeyKind::p521),
                                    FixedKey(KeyKind::ed25519)};
    const uint8_t message[] = "this data was never signed";
    for (const FixedKey& key : keys) {
        SignatureAlgorithm algorithm;
        require(signature_choose(algorithm, nullptr, key) == 0);
        SignatureBytes input(message, sizeof message);
        for (const int options : {0, ZUL_SIG_RAW}) {
            err_clear();
            const int error = signature_check(data, size, key, algorithm, input, options);
            require(error != 0 && *err_text() != '\0');
        }
    }
}

// check_old takes the first SEQUENCE as a SubjectPublicKeyInfo, the rest as its signature.
static void check_old(const uint8_t* data, size_t size) {
    const AsnList info = asn_ParseBytes(data, size);
    if (!info)
        return;
    DsaCheck check;
    uint8_t digest[20] = {3};
    DerReader reader({data, size});
    DerElement first;
    if (!reader.take_any(first))
        return;
    const DerView rest = reader.rest();
    if (check.open_key(info.head()) == 0 && check.open_signature(rest.data, rest.size)) {
        const bool matches = check.matches(digest, sizeof digest);
        require(check.matches(digest, sizeof digest) == matches);
    }
    RsaKey key;
    if (rsa_signer_key(info.head(), key) == 0)
        require(key.bits > 1);
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    check_identifier(data, size);
    check_schemes(data, size);
    check_old(data, size);
    return 0;
}
