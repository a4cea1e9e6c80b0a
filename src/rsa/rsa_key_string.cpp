// The protection is a double encryption as in RFC 3217, over data of any length.
#include "rsa/rsa_key_string.h"

#include <cstring>

#include "asn1/asn_encode.h"
#include "asn1/asn_parse.h"
#include "cipher/tdes.h"
#include "encode/base64.h"
#include "frame/constant_time.h"
#include "hash/sha256.h"
#include "rng/rng.h"
#include "rsa/process_key.h"
#include "rsa/rsa_der.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr size_t kMarker = 3; // bytes: four characters of the text
constexpr size_t kBlock = 8;  // of Triple DES
constexpr size_t kLengthField = 2;
constexpr size_t kMaxDer = 0xFFFE;
constexpr uint8_t kProtected = 0x3D; // the first byte of every marker

// Indexed by type code: the base64 text of three bytes.
constexpr const char* kMarkers[] = {nullptr, "PUBR", "PVTR", "PUBD", "PVTD"};
constexpr uint8_t kOuterIv[kBlock] = {0x4A, 0xDD, 0xA2, 0x2C, 0x79, 0xE8, 0x21, 0x05};

bool is_marked(KeyStringType type) {
    return type >= KeyStringType::rsaPublic && type <= KeyStringType::otherPrivate;
}

// The check value also covers the type, which is not encrypted.
void check_value(uint8_t out[kBlock], KeyStringType type, const uint8_t* payload, size_t size) {
    Wiped<Sha256Context> context;
    Secret<kSha256Size> digest;
    const auto typeByte = static_cast<uint8_t>(type);
    sha256_init(*context);
    sha256_update(*context, &typeByte, 1);
    sha256_update(*context, payload, size);
    sha256_final(*context, digest.data());
    memcpy(out, digest.data(), kBlock);
}

// decode decodes a key string. A protected one has to be exactly the text that encoding its bytes gives, so
// that every altered character shows.
bool decode(const char* text, SecretBuffer& bytes) {
    const size_t chars = strlen(text);
    if (chars > 2 * kMaxDer) // line breaks in plain base64 included
        return false;
    const size_t size = b64_decoded_length(text, chars);
    if (size == 0)
        return false;
    SecretBuffer decoded(size);
    b64_decode(decoded.data(), size, text, chars);
    if (decoded[0] == kProtected) {
        const SecretBuffer again = b64_text(decoded.data(), size);
        if (again.size() != chars || memcmp(again.data(), text, chars) != 0)
            return false;
    }
    bytes = std::move(decoded);
    return true;
}

// The bytes of a block of whole words in reverse order.
void reverse_bytes(uint8_t* block, size_t size) {
    for (size_t low = 0, high = size; low < high; low += 8, high -= 8) {
        uint64_t first, last;
        memcpy(&first, block + low, 8);
        memcpy(&last, block + high - 8, 8);
        first = __builtin_bswap64(first);
        last = __builtin_bswap64(last);
        memcpy(block + low, &last, 8);
        memcpy(block + high - 8, &first, 8);
    }
}

// protect fills block (initial vector, payload and check value; kBlock + payload + kBlock bytes).
void protect(SecretBuffer& block, const uint8_t* der, size_t derLen, KeyStringType type) {
    uint8_t* const payload = block.data() + kBlock;
    const size_t payloadSize = block.size() - 2 * kBlock;
    payload[0] = static_cast<uint8_t>(derLen >> 8);
    payload[1] = static_cast<uint8_t>(derLen);
    memcpy(payload + kLengthField, der, derLen);
    rng_draw(payload + kLengthField + derLen, payloadSize - kLengthField - derLen);
    check_value(payload + payloadSize, type, payload, payloadSize);

    Wiped<TdesKey> key;
    process_key(key);
    Secret<kBlock> iv;
    rng_draw(iv.data(), kBlock);
    memcpy(block.data(), iv.data(), kBlock);
    tdes_cbc_encrypt(*key, iv.data(), payload, payload, payloadSize / kBlock + 1);
    reverse_bytes(block.data(), block.size());
    memcpy(iv.data(), kOuterIv, kBlock);
    tdes_cbc_encrypt(*key, iv.data(), block.data(), block.data(), block.size() / kBlock);
}

// unprotect decrypts the block behind a marker in place, and leaves the DER that is in it alone.
bool unprotect(SecretBuffer& bytes, KeyStringType type) {
    uint8_t* const block = bytes.data() + kMarker;
    const size_t size = bytes.size() - kMarker;
    if (size % kBlock != 0 || size < 3 * kBlock)
        return false;
    Wiped<TdesKey> key;
    process_key(key);
    Secret<kBlock> iv;
    memcpy(iv.data(), kOuterIv, kBlock);
    tdes_cbc_decrypt(*key, iv.data(), block, block, size / kBlock);
    reverse_bytes(block, size);
    memcpy(iv.data(), block, kBlock);
    uint8_t* const payload = block + kBlock;
    const size_t payloadSize = size - 2 * kBlock;
    tdes_cbc_decrypt(*key, iv.data(), payload, payload, payloadSize / kBlock + 1);

    Secret<kBlock> check;
    check_value(check.data(), type, payload, payloadSize);
    if (!bytes_equal(check.data(), payload + payloadSize, kBlock))
        return false;
    const size_t derLen = static_cast<size_t>(payload[0]) << 8 | payload[1];
    const size_t room = payloadSize - kLengthField;
    if (derLen == 0 || derLen > room || room - derLen > kBlock)
        return false;
    memmove(bytes.data(), payload + kLengthField, derLen);
    bytes.shrink(derLen);
    return true;
}

// open_as opens a key string of an allowed kind. A plain one is of the kind that its DER is.
[[nodiscard]] int open_as(const char* keyString, RsaKey& key, bool allowPublic, bool allowPrivate,
                          bool* isPrivate) {
    key.flags = 0;
    SecretBuffer der;
    KeyStringType type{};
    if (const int error = key_string_open(keyString, der, &type))
        return error;
    const bool isPlain = type == KeyStringType::plain;
    const bool tryPublic = allowPublic && (isPlain || type == KeyStringType::rsaPublic);
    const bool tryPrivate = allowPrivate && (isPlain || type == KeyStringType::rsaPrivate);
    if (!tryPublic && !tryPrivate)
        return INVALID_DATA_ERROR;
    const auto read = [&](auto structure) {
        const bool isPublic = tryPublic && rsa_read_public_key(structure, key);
        if (isPrivate != nullptr)
            *isPrivate = !isPublic;
        return isPublic || (tryPrivate && rsa_read_private_key(structure, key));
    };
    if (read(DerView(der.data(), der.size())))
        return 0;
    // A plain one may have a looser encoding.
    const AsnList list = asn_ParseBytes(der.data(), der.size());
    return list && read(list.head()) ? 0 : INVALID_DATA_ERROR;
}

[[nodiscard]] int write_key_string(char* out, int outChars, const AsnList& list, KeyStringType type,
                                   int* length) {
    const SecretBuffer der = asn_Encode(list);
    const SecretBuffer text = key_string_make(der.data(), der.size(), type);
    if (text.empty())
        return INVALID_DATA_ERROR;
    *length = static_cast<int>(text.size());
    if (out == nullptr || outChars <= 0)
        return 0;
    if (outChars < *length)
        return SHORT_BUF_ERROR;
    memcpy(out, text.data(), text.size() + 1);
    return 0;
}

} // namespace

SecretBuffer key_string_make(const uint8_t* der, size_t derLen, KeyStringType type) {
    if (derLen == 0 || derLen > kMaxDer)
        return {};
    if (!is_marked(type))
        return b64_text(der, derLen);
    const size_t padding = kBlock - (derLen + kLengthField) % kBlock;
    SecretBuffer block(kBlock + kLengthField + derLen + padding + kBlock);
    protect(block, der, derLen, type);

    SecretBuffer marked(kMarker + block.size());
    b64_decode(marked.data(), kMarker, kMarkers[static_cast<int>(type)]);
    memcpy(marked.data() + kMarker, block.data(), block.size());
    return b64_text(marked.data(), marked.size());
}

int key_string_open(const char* keyString, SecretBuffer& der, KeyStringType* type) {
    SecretBuffer bytes;
    if (keyString == nullptr || !decode(keyString, bytes))
        return INVALID_DATA_ERROR;
    if (bytes[0] != kProtected) {
        der = std::move(bytes);
        *type = KeyStringType::plain;
        return 0;
    }
    for (int code = 1; code <= 4; code++) {
        if (strncmp(keyString, kMarkers[code], 4) != 0)
            continue;
        *type = static_cast<KeyStringType>(code);
        if (!unprotect(bytes, *type))
            return INVALID_DATA_ERROR;
        der = std::move(bytes);
        return 0;
    }
    return INVALID_DATA_ERROR;
}

int rsa_open_public(const char* keyString, RsaKey& key) {
    return open_as(keyString, key, true, false, nullptr);
}

int rsa_open_private(const char* keyString, RsaKey& key) {
    return open_as(keyString, key, false, true, nullptr);
}

int rsa_open_any(const char* keyString, RsaKey& key, bool* isPrivate) {
    return open_as(keyString, key, true, true, isPrivate);
}

int rsa_public_key_string(char* out, int outChars, const RsaKey& key, int* length) {
    return write_key_string(out, outChars, rsa_public_key_list(key), KeyStringType::rsaPublic, length);
}

int rsa_private_key_string(char* out, int outChars, const RsaKey& key, int* length) {
    return write_key_string(out, outChars, rsa_private_key_list(key), KeyStringType::rsaPrivate, length);
}

} // namespace zul
