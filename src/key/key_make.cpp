#include "key/key_make.h"

#include "ec/ecdsa.h"
#include "frame/err.h"
#include "frame/name_table.h"
#include "frame/text.h"
#include "rng/rng.h"
#include "rsa/rsa_generate.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr size_t kLeastRsaBits = 1024, kMostRsaBits = 16384, kDefaultRsaBits = 3072;
constexpr size_t kPrimeTests = 40;

constexpr NameRow kNames[] = {
    {"rsa", static_cast<int>(KeyKind::rsa), false},
    {"rsa-N", static_cast<int>(KeyKind::rsa), false},
    {"p-256", static_cast<int>(KeyKind::p256), false},
    {"p-384", static_cast<int>(KeyKind::p384), false},
    {"p-521", static_cast<int>(KeyKind::p521), false},
    {"ed25519", static_cast<int>(KeyKind::ed25519), false},
    {"x25519", static_cast<int>(KeyKind::x25519), false},
    {"secp256r1", static_cast<int>(KeyKind::p256), true},
    {"prime256v1", static_cast<int>(KeyKind::p256), true},
    {"secp384r1", static_cast<int>(KeyKind::p384), true},
    {"secp521r1", static_cast<int>(KeyKind::p521), true},
};

bool is_rsa_prefix(const char* name) {
    return (name[0] | 0x20) == 'r' && (name[1] | 0x20) == 's' && (name[2] | 0x20) == 'a' && name[3] == '-';
}

// The digits after "rsa-"; 0 if there is anything else.
size_t rsa_bits(const char* digits) {
    size_t bits = 0;
    for (; *digits >= '0' && *digits <= '9' && bits <= kMostRsaBits; digits++)
        bits = 10 * bits + static_cast<size_t>(*digits - '0');
    return *digits == '\0' || bits > kMostRsaBits ? bits : 0;
}

} // namespace

int key_choose(KeyChoice& choice, const char* name) {
    if (!is_missing(name) && is_rsa_prefix(name)) {
        const size_t bits = rsa_bits(name + 4);
        if (bits > 0 && (bits < kLeastRsaBits || bits > kMostRsaBits))
            return err_fail(OUT_OF_RANGE_ERROR, "RSA keys have %d to %d bits",
                            static_cast<int>(kLeastRsaBits), static_cast<int>(kMostRsaBits));
        if (bits > 0) {
            choice = {KeyKind::rsa, bits};
            return 0;
        }
    }
    int kind = 0;
    const int error = name_find(kNames, name, &kind);
    choice = {static_cast<KeyKind>(kind), kDefaultRsaBits};
    return error;
}

int key_make(Key& key, const KeyChoice& choice, int options) {
    key.kind = choice.kind;
    key.isPrivate = true;
    if (key.is_rsa())
        return rsaGenerateKeys(&key.rsa.emplace(), {.bits = choice.bits,
                                                    .expIndex = 4,
                                                    .tests = kPrimeTests,
                                                    .seed = nullptr,
                                                    .seedLen = 0,
                                                    .fill = rng_fill,
                                                    .options = options});
    if (key.is_ec())
        ec_make_private(key.secret.data(), key.curve());
    else
        rng_draw(key.secret.data(), key_kind_info(key.kind).secretBytes);
    key_make_public(key);
    return 0;
}

} // namespace zul
