#include <cstring>
#include <string>

#include "asn1/asn_parse.h"
#include "frame/err.h"
#include "fuzz_support.h"
#include "key/key_check.h"
#include "key/key_der.h"
#include "key/signature.h"
#include "rsa/rsa_operation.h"
#include "zulcore.h"

// The input is a key in DER, which is used: hostile numbers go through the arithmetic. What a key that passes
// its check signs, its public half verifies, and not for other data. Two keys agree in both directions.

using namespace zul;
using fuzz::require;

static bool is_affordable(const Key& key) {
    constexpr size_t kMostBits = 1100;
    return !key.is_rsa() || (key.rsa && key.rsa->bits <= kMostBits && mtBitLength(key.rsa->e) <= kMostBits);
}

static void sign(const Key& key, const char* name) {
    SignatureAlgorithm algorithm;
    if (signature_choose(algorithm, name, key) != 0)
        return;
    const uint8_t data[] = "data to be signed";
    SignatureBytes input(data, sizeof data), other(data, sizeof data - 1);
    SecretBuffer signature;
    size_t most = 0;
    if (signature_most(&most, key, algorithm, 0) != 0 ||
        signature_make(signature, key, algorithm, input, 0) != 0)
        return;
    require(signature.size() <= most && !signature.empty());
    require(signature_check(signature.data(), signature.size(), key, algorithm, input, 0) == 0);
    require(signature_check(signature.data(), signature.size(), key, algorithm, other, 0) == SIGNATURE_ERROR);
    signature[signature.size() / 2] ^= 4;
    require(signature_check(signature.data(), signature.size(), key, algorithm, input, 0) != 0);
}

static void agree(const Key& key) {
    Key peer;
    peer.kind = key.kind;
    memset(peer.secret.data(), 0x11, kMaxEcBytes);
    peer.secret[0] = 0; // below the order of every curve
    peer.isPrivate = true;
    key_make_public(peer);
    size_t size = 0;
    if (key_agree_size(&size, peer, key) != 0)
        return;
    uint8_t ours[kMaxEcBytes] = {}, theirs[kMaxEcBytes] = {};
    require(size <= kMaxEcBytes);
    const int error = key_agree(theirs, peer, key);
    require(error == 0 || error == BAD_KEY_ERROR);
    if (error == 0 && key.isPrivate) {
        require(key_agree(ours, key, peer) == 0);
        require(key_check(key) != 0 || memcmp(ours, theirs, size) == 0);
    }
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    AsnList list;
    Key key;
    if (!key_parse(data, size, list) || key_read_structure(list.head(), key) != 0 || !is_affordable(key))
        return 0;
    err_clear();
    const int error = key_check(key);
    require(error == 0 || *err_text() != '\0');
    require(key_match(key, key) == error || !key.isPrivate);
    if (error == 0 && key.isPrivate)
        for (const char* name : {static_cast<const char*>(nullptr), "rsa-pss-sha256", "ed25519ph"})
            sign(key, name);
    if (!key.is_rsa())
        agree(key);
    const uint8_t digest[32] = {1};
    const uint8_t signature[600] = {0x30, 6, 2, 1, 1, 2, 1, 1};
    SignatureAlgorithm algorithm;
    if (signature_choose(algorithm, nullptr, key) == 0) {
        SignatureDigest input(digest, sizeof digest);
        for (const size_t length : {size_t{8}, size_t{64}, sizeof signature, key.rsa ? key.rsa->bytes() : 0})
            require(length > sizeof signature ||
                    signature_check(signature, length, key, algorithm, input, 0) != 0);
    }
    return 0;
}
