#pragma once
#include "key/key.h"

namespace zul {

enum class SignatureScheme { rsaPkcs1, rsaPss, ecdsa, ed25519, ed25519ph };
enum class PssSalt { digest, most, fixed, any }; // any: to verify alone

struct SignatureAlgorithm {
    SignatureScheme scheme = SignatureScheme::rsaPkcs1;
    int digest = 0; // of the data; of Ed25519 that of the pre-hashed form
    int mgfDigest = 0;
    PssSalt salt = PssSalt::digest;
    size_t saltSize = 0; // with PssSalt::fixed
};

// signature_choose reads the name of an algorithm, null or empty for the key's default, and checks that the
// key may be used with it. 0, or with a text: NOT_SUPPORTED_ERROR (no such algorithm), BAD_PARAM_ERROR (a
// malformed parameter), BAD_KEY_ERROR (another kind of key, or one whose parameters forbid it).
[[nodiscard]] int signature_choose(SignatureAlgorithm& algorithm, const char* name, const Key& key);

} // namespace zul
