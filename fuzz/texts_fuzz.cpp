#include <cstring>
#include <string>

#include "cert/make/certificate_plan.h"
#include "cert/make/time_value.h"
#include "cert/path/path_conditions.h"
#include "cert/query/cert_query.h"
#include "frame/err.h"
#include "fuzz_support.h"
#include "hash/digest_names.h"
#include "key/key_encryption.h"
#include "key/signature_choice.h"
#include "x509/fields/hex_value.h"
#include "x509/make/certificate_validity.h"
#include "x509/make/extension_text.h"
#include "x509/make/revoked_list.h"
#include "x509/query/certificate_query.h"
#include "zulcore.h"

// The short texts that callers give: conditions, parameters, names of algorithms, lists of revoked
// certificates. The first byte chooses the reader. What is refused has a text that says why, and values that
// are taken are within their bounds.

using namespace zul;
using fuzz::require;

static void check_conditions(const char* text) {
    PathConditions conditions;
    const int error = path_conditions_read(conditions, text);
    require(error == 0 || error == BAD_PARAM_ERROR);
    require(error == 0 || *err_text() != '\0');
    if (error == 0) {
        require(conditions.maxDepth >= 0 && *purpose_name(conditions.purpose) != '\0' &&
                *demand_name(conditions.revocation) != '\0');
        for (const SecretBuffer& policy : conditions.policies)
            require(der_is_oid({policy.data(), policy.size()}));
    }
}

static void check_encryption(const char* text) {
    KeyEncryption encryption;
    const int error = key_encryption_read(encryption, text);
    require(error == 0 || *err_text() != '\0');
    require(error != 0 || encryption.kdf != KeyKdf::scrypt ||
            scrypt_check_file({encryption.n, encryption.r, encryption.p}) == 0);
    require(error != 0 || encryption.kdf != KeyKdf::pbkdf2 || encryption.iterations > 0);
}

static void check_revoked(const char* text) {
    AsnList entries;
    const int error = read_revoked_list(text, entries);
    require(error == 0 || (error == BAD_FORMAT_ERROR && *err_text() != '\0'));
}

static void check_extensions(const char* text) {
    CertificateText certificate;
    CrlText crl;
    const int error = read_certificate_text(text, certificate);
    require(error == 0 || (error == BAD_PARAM_ERROR && *err_text() != '\0'));
    tm notBefore, notAfter;
    if (error == 0) {
        require(certificate_validity(certificate, 1, &notBefore, &notAfter) >= 0);
        require(strlen(certificate.emailAddress.empty() ? "" : certificate.emailAddress.text()) ==
                certificate.emailAddress.size());
    }
    (void)read_crl_text(text, crl);
}

static void check_names(const char* text) {
    int digest = 0;
    if (digest_choose(&digest, text) == 0)
        require(digest >= 0);
    CertificateQuery query;
    if (find_query(text, query) == 0)
        require(query_type(query) == kQueryNumber || query_type(query) == kQueryText);
    WriteAnswer write = nullptr;
    require((cert_query_find(write, text) == 0) == (write != nullptr));
    for (const KeyKind kind :
         {KeyKind::rsa, KeyKind::rsaPss, KeyKind::p256, KeyKind::ed25519, KeyKind::x25519}) {
        Key key;
        key.kind = kind;
        SignatureAlgorithm algorithm;
        err_clear();
        const int error = signature_choose(algorithm, text, key);
        require(error == 0 || *err_text() != '\0');
    }
}

static void check_values(const char* text) {
    tm time;
    TimeSpan span;
    if (time_value_read(time, text, "00:00:00") == 0) {
        const tm again = time_of_seconds(time_seconds(time));
        require(again.tm_year == time.tm_year && again.tm_yday >= 0 && again.tm_sec == time.tm_sec);
    }
    if (time_span_read(span, text) == 0) {
        tm later = time_of_seconds(1767225600);
        require(time_add(later, span) != 0 || time_seconds(later) != 1767225600);
    }
    SecretBuffer bytes;
    if (hex_value(text, bytes))
        require(!bytes.empty());
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    constexpr void (*kReaders[])(const char*) = {check_conditions, check_encryption, check_revoked,
                                                 check_extensions, check_names,      check_values};
    const fuzz::FirstByte input(data, size);
    err_clear();
    kReaders[input.choice % std::size(kReaders)](input.text().c_str());
    return 0;
}
