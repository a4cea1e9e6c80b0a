#include "key/key_string.h"

#include <cstring>

#include "asn1/asn_encode.h"
#include "asn1/asn_parse.h"
#include "cipher/gcm.h"
#include "encode/base64.h"
#include "frame/err.h"
#include "frame/text.h"
#include "key/key_check.h"
#include "key/string_key.h"
#include "rng/rng.h"
#include "rsa/rsa_der.h"
#include "rsa/rsa_key_string.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr size_t kMarkChars = 4, kMark = 3, kNonce = 12, kOverhead = kMark + kNonce + kGcmTag;
constexpr size_t kMaxPayload = 0xFFFF;
constexpr char kPublicMark[] = "PUBK", kPrivateMark[] = "PVTK";
constexpr size_t kPssHead = 13; // the rules of an RSA-PSS key: three numbers of four bytes, and whether any

void set_key(AesKey& key) {
    Secret<kStringKey> bytes;
    string_key(bytes);
    aes_set_encrypt_key(key, bytes.data(), kStringKey);
}

void put_number(uint8_t* out, uint32_t value) {
    for (size_t i = 0; i < 4; i++)
        out[i] = static_cast<uint8_t>(value >> (24 - 8 * i));
}

uint32_t get_number(const uint8_t* in) {
    return uint32_t{in[0]} << 24 | uint32_t{in[1]} << 16 | uint32_t{in[2]} << 8 | in[3];
}

SecretBuffer rsa_der(const Key& key) {
    return asn_Encode(key.isPrivate ? rsa_private_key_list(*key.rsa) : rsa_public_key_list(*key.rsa));
}

// The payload: the kind, and then the secret if there is one and the public key, or the PSS rules and the
// DER.
SecretBuffer payload_of(const Key& key) {
    SecretBuffer payload;
    const auto kind = static_cast<uint8_t>(key.kind);
    if (key.kind == KeyKind::rsaPss) {
        const SecretBuffer der = rsa_der(key);
        uint8_t head[1 + kPssHead] = {kind, key.pss.restricts};
        put_number(head + 2, static_cast<uint32_t>(key.pss.digest));
        put_number(head + 6, static_cast<uint32_t>(key.pss.mgfDigest));
        put_number(head + 10, key.pss.leastSalt);
        payload = SecretBuffer(sizeof head + der.size());
        memcpy(payload.data(), head, sizeof head);
        memcpy(payload.data() + sizeof head, der.data(), der.size());
        return payload;
    }
    const KeyKindInfo& info = key_kind_info(key.kind);
    const size_t secretBytes = key.isPrivate ? info.secretBytes : 0;
    payload = SecretBuffer(1 + secretBytes + info.publicBytes);
    payload[0] = kind;
    memcpy(payload.data() + 1, key.secret.data(), secretBytes);
    memcpy(payload.data() + 1 + secretBytes, key.point, info.publicBytes);
    return payload;
}

// read_payload takes what payload_of makes: the tag has shown that this process made it.
bool read_payload(const SecretBuffer& payload, bool isPrivate, Key& key) {
    if (payload.empty() || payload[0] >= kKeyKinds)
        return false;
    key.kind = static_cast<KeyKind>(payload[0]);
    key.isPrivate = isPrivate;
    if (key.kind == KeyKind::rsaPss) {
        if (payload.size() <= 1 + kPssHead)
            return false;
        const uint8_t* const head = payload.data() + 1;
        key.pss = {head[0] != 0, static_cast<int>(get_number(head + 1)),
                   static_cast<int>(get_number(head + 5)), get_number(head + 9)};
        const AsnList list = asn_ParseBytes(head + kPssHead, payload.size() - 1 - kPssHead);
        RsaKey& rsa = key.rsa.emplace();
        return list &&
               (isPrivate ? rsa_read_private_key(list.head(), rsa) : rsa_read_public_key(list.head(), rsa));
    }
    const KeyKindInfo& info = key_kind_info(key.kind);
    const size_t secretBytes = isPrivate ? info.secretBytes : 0;
    if (info.publicBytes == 0 || payload.size() != 1 + secretBytes + info.publicBytes)
        return false;
    memcpy(key.secret.data(), payload.data() + 1, secretBytes);
    memcpy(key.point, payload.data() + 1 + secretBytes, info.publicBytes);
    return true;
}

// open takes only the very text that encoding the bytes gives, so that no character can be altered.
bool open(const char* text, Key& key) {
    const size_t chars = strlen(text);
    if (chars % 4 != 0 || chars > b64_encoded_length(kMaxPayload + kOverhead))
        return false;
    SecretBuffer bytes(chars / 4 * 3);
    const size_t size = b64_decode(bytes.data(), bytes.size(), text, chars);
    if (size <= kOverhead)
        return false;
    const SecretBuffer again = b64_text(bytes.data(), size);
    if (again.size() != chars || memcmp(again.data(), text, chars) != 0)
        return false;
    Wiped<AesKey> aes;
    set_key(*aes);
    SecretBuffer payload(size - kOverhead);
    const uint8_t *const nonce = bytes.data() + kMark, *const sealed = nonce + kNonce,
                         *const tag = sealed + payload.size();
    return gcm_decrypt(payload.data(), tag, *aes, nonce, kNonce, bytes.data(), kMark, sealed,
                       payload.size()) &&
           read_payload(payload, text[1] == kPrivateMark[1], key);
}

bool open_rsa(const char* text, Key& key) {
    key.kind = KeyKind::rsa;
    return rsa_open_any(text, key.rsa.emplace(), &key.isPrivate) == 0;
}

} // namespace

SecretBuffer key_string_write(const Key& key) {
    if (key.kind == KeyKind::rsa) {
        const SecretBuffer der = rsa_der(key);
        return key_string_make(der.data(), der.size(),
                               key.isPrivate ? KeyStringType::rsaPrivate : KeyStringType::rsaPublic);
    }
    const SecretBuffer payload = payload_of(key);
    if (payload.size() > kMaxPayload)
        return {};
    SecretBuffer bytes(kOverhead + payload.size());
    b64_decode(bytes.data(), kMark, key.isPrivate ? kPrivateMark : kPublicMark);
    uint8_t *const nonce = bytes.data() + kMark, *const sealed = nonce + kNonce;
    rng_draw(nonce, kNonce);
    Wiped<AesKey> aes;
    set_key(*aes);
    gcm_encrypt(sealed, sealed + payload.size(), *aes, nonce, kNonce, bytes.data(), kMark, payload.data(),
                payload.size());
    return b64_text(bytes.data(), bytes.size());
}

size_t key_string_most(KeyKind kind, size_t bits) {
    if (kind != KeyKind::rsa) {
        const KeyKindInfo& info = key_kind_info(kind);
        return b64_encoded_length(kOverhead + 1 + info.secretBytes + info.publicBytes);
    }
    // RSAPrivateKey: two numbers as long as the modulus, five half as long, e, the version, their headers of
    // up to five bytes each with a leading zero. Around it the protection: a mark, up to 26 bytes.
    const size_t bytes = (bits + 7) / 8;
    return b64_encoded_length(kMark + 26 + 2 * bytes + 5 * (bytes / 2 + 1) + 4 + size_t{10} * 5);
}

int key_string_read(const char* text, Key& key) {
    if (is_missing(text))
        return err_fail(BAD_PARAM_ERROR, "Missing key");
    const bool isMarked =
        strncmp(text, kPublicMark, kMarkChars) == 0 || strncmp(text, kPrivateMark, kMarkChars) == 0;
    // The readers of RSA_ take keys of any exponent.
    if (isMarked ? open(text, key) : open_rsa(text, key))
        return key_check_exponent(key);
    return err_fail(INVALID_DATA_ERROR, "Not a key string of this process");
}

int key_string_read_private(const char* text, Key& key) {
    if (const int error = key_string_read(text, key))
        return error;
    return key.isPrivate ? 0 : err_fail(INVALID_DATA_ERROR, "A private key is needed");
}

} // namespace zul
