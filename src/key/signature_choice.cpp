#include "key/signature_choice.h"

#include <cstring>

#include "frame/err.h"
#include "frame/name_table.h"
#include "frame/slice.h"
#include "frame/text.h"
#include "hash/digest.h"
#include "hash/digest_names.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr size_t kLongestName = 80;
constexpr size_t kMostSalt = 8192; // no modulus has room for more

struct Prefix {
    std::string_view text;
    SignatureScheme scheme;
};
// Longer ones first, where one begins another.
constexpr Prefix kPrefixes[] = {{"rsa-pss-", SignatureScheme::rsaPss},
                                {"rsa-pkcs1-", SignatureScheme::rsaPkcs1},
                                {"rsa-", SignatureScheme::rsaPkcs1},
                                {"ecdsa-", SignatureScheme::ecdsa}};

[[nodiscard]] int unknown(const char* name) {
    return err_fail(
        NOT_SUPPORTED_ERROR,
        "Unknown algorithm '%s' (known: rsa-HASH, rsa-pss-HASH[;salt=N|digest|max|any][;mgf=HASH], "
        "ecdsa-HASH, ed25519, ed25519ph; HASH as sha256)",
        shown_name(name));
}

[[nodiscard]] int choose_digest(int* digest, const char* name) {
    if (const int error = digest_choose(digest, name))
        return error;
    return digest_find(*digest)->isExtendable ? err_fail(NOT_SUPPORTED_ERROR, "No signatures with '%s'", name)
                                              : 0;
}

[[nodiscard]] int read_salt(SignatureAlgorithm& algorithm, const char* value) {
    constexpr struct {
        const char* name;
        PssSalt salt;
    } kNames[] = {{"digest", PssSalt::digest}, {"max", PssSalt::most}, {"any", PssSalt::any}};
    for (const auto& row : kNames) {
        if (strcmp(value, row.name) == 0) {
            algorithm.salt = row.salt;
            return 0;
        }
    }
    algorithm.salt = PssSalt::fixed;
    const char* at = value;
    for (; *at >= '0' && *at <= '9' && algorithm.saltSize <= kMostSalt; at++)
        algorithm.saltSize = 10 * algorithm.saltSize + static_cast<size_t>(*at - '0');
    return at != value && *at == '\0' && algorithm.saltSize <= kMostSalt
               ? 0
               : err_fail(BAD_PARAM_ERROR, "The salt is a number, 'digest', 'max' or 'any'");
}

// read_parameters reads ";salt=...;mgf=...", each at most once.
[[nodiscard]] int read_parameters(SignatureAlgorithm& algorithm, char* text) {
    bool hasSalt = false, hasMgf = false;
    while (text != nullptr) {
        char* const next = strchr(text, ';');
        if (next != nullptr)
            *next = '\0';
        int error = BAD_PARAM_ERROR;
        if (strncmp(text, "salt=", 5) == 0 && !hasSalt) {
            hasSalt = true;
            error = read_salt(algorithm, text + 5);
        } else if (strncmp(text, "mgf=", 4) == 0 && !hasMgf) {
            hasMgf = true;
            error = choose_digest(&algorithm.mgfDigest, text + 4);
        } else {
            err_add_text("Parameters are ;salt=N|digest|max|any and ;mgf=HASH, each once");
        }
        if (error != 0)
            return error;
        text = next == nullptr ? nullptr : next + 1;
    }
    return 0;
}

[[nodiscard]] int read_name(SignatureAlgorithm& algorithm, const char* name) {
    char lower[kLongestName + 1] = {};
    if (strlen(name) > kLongestName)
        return unknown(name);
    for (size_t i = 0; name[i] != '\0'; i++)
        lower[i] = name[i] >= 'A' && name[i] <= 'Z' ? static_cast<char>(name[i] + ('a' - 'A')) : name[i];
    algorithm.digest = kDigestSha512;
    if (strcmp(lower, "ed25519") == 0 || strcmp(lower, "ed25519ph") == 0) {
        algorithm.scheme = lower[7] == '\0' ? SignatureScheme::ed25519 : SignatureScheme::ed25519ph;
        return 0;
    }
    for (const Prefix& prefix : kPrefixes) {
        if (!std::string_view(lower).starts_with(prefix.text))
            continue;
        algorithm.scheme = prefix.scheme;
        char* const hash = lower + prefix.text.size();
        char* const parameters = prefix.scheme == SignatureScheme::rsaPss ? strchr(hash, ';') : nullptr;
        if (parameters != nullptr)
            *parameters = '\0';
        if (*hash == '\0')
            return unknown(name);
        if (const int error = choose_digest(&algorithm.digest, hash))
            return error;
        algorithm.mgfDigest = algorithm.digest;
        return parameters == nullptr ? 0 : read_parameters(algorithm, parameters + 1);
    }
    return unknown(name);
}

// The default of a key.
[[nodiscard]] int choose_default(SignatureAlgorithm& algorithm, const Key& key) {
    algorithm.scheme = SignatureScheme::ecdsa;
    switch (key.kind) {
    case KeyKind::rsa:
    case KeyKind::rsaPss:
        algorithm.scheme = SignatureScheme::rsaPss;
        algorithm.digest = algorithm.mgfDigest = kDigestSha256;
        if (key.pss.restricts) {
            algorithm.digest = key.pss.digest;
            algorithm.mgfDigest = key.pss.mgfDigest;
            if (key.pss.leastSalt > digest_length(key.pss.digest)) {
                algorithm.salt = PssSalt::fixed;
                algorithm.saltSize = key.pss.leastSalt;
            }
        }
        return 0;
    case KeyKind::p256:
        algorithm.digest = kDigestSha256;
        return 0;
    case KeyKind::p384:
        algorithm.digest = kDigestSha384;
        return 0;
    case KeyKind::p521:
        algorithm.digest = kDigestSha512;
        return 0;
    case KeyKind::ed25519:
        algorithm.scheme = SignatureScheme::ed25519;
        return 0;
    case KeyKind::x25519:
        break;
    }
    return err_fail(BAD_KEY_ERROR, "Keys of x25519 do not sign");
}

bool fits(const SignatureAlgorithm& algorithm, const Key& key) {
    switch (algorithm.scheme) {
    case SignatureScheme::rsaPkcs1:
        return key.kind == KeyKind::rsa;
    case SignatureScheme::rsaPss:
        return key.is_rsa();
    case SignatureScheme::ecdsa:
        return key.is_ec();
    case SignatureScheme::ed25519:
    case SignatureScheme::ed25519ph:
        break;
    }
    return key.kind == KeyKind::ed25519;
}

bool keeps_rules(const SignatureAlgorithm& algorithm, const PssRules& rules) {
    if (!rules.restricts)
        return true;
    const size_t salt =
        algorithm.salt == PssSalt::digest ? digest_length(algorithm.digest) : algorithm.saltSize;
    return algorithm.digest == rules.digest && algorithm.mgfDigest == rules.mgfDigest &&
           (algorithm.salt == PssSalt::most || algorithm.salt == PssSalt::any || salt >= rules.leastSalt);
}

} // namespace

int signature_choose(SignatureAlgorithm& algorithm, const char* name, const Key& key) {
    algorithm = {};
    if (const int error = is_missing(name) ? choose_default(algorithm, key) : read_name(algorithm, name))
        return error;
    if (!fits(algorithm, key))
        return err_fail(BAD_KEY_ERROR, "The algorithm does not go with keys of %s",
                        key_kind_info(key.kind).name);
    return keeps_rules(algorithm, key.pss)
               ? 0
               : err_fail(BAD_KEY_ERROR, "The parameters of the RSA-PSS key forbid this algorithm");
}

} // namespace zul
