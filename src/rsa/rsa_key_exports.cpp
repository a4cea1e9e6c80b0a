#include <cstring>

#include "asn1/asn_encode.h"
#include "frame/call_frame.h"
#include "frame/text.h"
#include "hash/digest.h"
#include "rsa/rsa_der.h"
#include "rsa/rsa_key_string.h"
#include "rsa/rsa_pairwise.h"
#include "zulcore.h"

using namespace zul;

namespace {

constexpr char kNoKey[] = "Could not extract key from string";

// Opens a key string of either kind: 0 or a negated code.
int open_any(const char* keyString, RsaKey& key, bool* isPrivate = nullptr) {
    if (is_missing(keyString))
        return -BAD_PARAM_ERROR;
    const int code = rsa_open_any(keyString, key, isPrivate);
    if (code != 0)
        err_add_text("%s", kNoKey);
    return -code;
}

SecretBuffer public_part(const RsaKey& key) {
    return asn_Encode(rsa_public_key_list(key));
}

int key_match(const char* privateString, const char* publicString) {
    if (privateString == nullptr || publicString == nullptr)
        return -BAD_PARAM_ERROR;
    RsaKey privateKey, publicKey;
    if (const int code = rsa_open_private(privateString, privateKey)) {
        err_add_text("Could not extract private key from string");
        return -code;
    }
    if (const int code = rsa_open_public(publicString, publicKey)) {
        err_add_text("Could not extract public key from string");
        return -code;
    }
    if (privateKey.bits != publicKey.bits) {
        err_add_text("Key lengths are different");
        return -NO_MATCH_ERROR;
    }
    if (rsaPairwiseTest(&privateKey) != 0) {
        err_add_text("Not a valid private key");
        return -INVALID_DATA_ERROR;
    }
    const SecretBuffer own = public_part(privateKey), other = public_part(publicKey);
    if (own.empty() || other.empty()) {
        err_add_text("Invalid key data");
        return -INVALID_DATA_ERROR;
    }
    if (own.size() != other.size() || memcmp(own.data(), other.data(), own.size()) != 0) {
        err_add_text("Keys do not match");
        return -NO_MATCH_ERROR;
    }
    return 0;
}

int check_key(const char* keyString) {
    RsaKey key;
    bool isPrivate = false;
    if (const int code = open_any(keyString, key, &isPrivate))
        return code;
    return isPrivate ? -rsaPairwiseTest(&key) : 1;
}

} // namespace

int RSA_KeyBits(const char* szKeyString) {
    CallFrame frame;
    RsaKey key;
    const int code = open_any(szKeyString, key);
    return frame.length(code != 0 ? code : static_cast<int>(key.bits));
}

int RSA_KeyBytes(const char* szKeyString) {
    CallFrame frame;
    RsaKey key;
    const int code = open_any(szKeyString, key);
    return frame.length(code != 0 ? code : static_cast<int>(key.bytes()));
}

int RSA_KeyMatch(const char* szPrivateKey, const char* szPublicKey) {
    CallFrame frame;
    return frame.length(key_match(szPrivateKey, szPublicKey));
}

int RSA_KeyHashCode(const char* szKeyString) {
    CallFrame frame;
    RsaKey key;
    if (const int code = open_any(szKeyString, key)) {
        if (is_missing(szKeyString))
            err_add_text("%s", kNoKey);
        frame.length(code);
        return 0;
    }
    const SecretBuffer der = public_part(key);
    uint8_t digest[kMd5Size];
    hash_bytes(digest, int{kMd5Size}, der.data(), static_cast<int64_t>(der.size()), kDigestMd5);
    return static_cast<int>(uint32_t{digest[0]} << 24 | uint32_t{digest[1]} << 16 | uint32_t{digest[2]} << 8 |
                            digest[3]);
}

int RSA_CheckKey(const char* szKeyString, int) {
    CallFrame frame;
    return frame.length(check_key(szKeyString));
}
