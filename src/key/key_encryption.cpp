#include "key/key_encryption.h"

#include <cstring>

#include "asn1/asn_build.h"
#include "asn1/asn_children.h"
#include "asn1/asn_value.h"
#include "asn1/oid.h"
#include "cipher/cipher_context.h"
#include "cipher/padding.h"
#include "frame/constant_time.h"
#include "frame/err.h"
#include "frame/wipe.h"
#include "hash/digest.h"
#include "key/key_oids.h"
#include "pbe/kdf.h"
#include "pbe/pbe.h"
#include "pbe/pbe_params.h"
#include "pbe/scrypt.h"
#include "rng/rng.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr size_t kSalt = 16;

[[nodiscard]] int bad_format() {
    return err_fail(BAD_FORMAT_ERROR, "Invalid scrypt parameters");
}

AsnList number(uint64_t value) {
    uint8_t bytes[8];
    for (size_t i = 0; i < sizeof bytes; i++)
        bytes[i] = static_cast<uint8_t>(value >> (56 - 8 * i));
    size_t zeros = 0;
    while (zeros < 7 && bytes[zeros] == 0)
        zeros++;
    return asn_NewIntegerBytes(bytes + zeros, sizeof bytes - zeros);
}

AsnList kdf_algorithm(const KeyEncryption& encryption, const uint8_t* salt) {
    AsnList octets = asn_NewOctetString(salt, kSalt);
    if (encryption.kdf == KeyKdf::scrypt)
        return asn_NewSequence(asn_LinkList(
            oid_node(kOidScrypt), asn_NewSequence(asn_LinkList(std::move(octets), number(encryption.n),
                                                               number(encryption.r), number(encryption.p)))));
    AsnList fields = asn_LinkList(std::move(octets), asn_NewInteger(encryption.iterations));
    if (encryption.digest != kDigestSha1) // the default
        fields = asn_Link(
            std::move(fields),
            asn_NewSequence(asn_LinkList(asn_NewOid(pbe_prf_of(encryption.digest)->name), asn_NewNull())));
    return asn_NewSequence(asn_LinkList(asn_NewOid("pkcs5PBKDF2"), asn_NewSequence(std::move(fields))));
}

// What PBES2 with scrypt says (RFC 7914, 7).
struct ScryptParams {
    SecretBuffer salt, iv;
    uint64_t n = 0, r = 0, p = 0;
    const BlockCipher* cipher = nullptr;
};

bool read_number(uint64_t& value, const asn_Node* node) {
    if (node == nullptr || node->length == 0 || node->length > 8 || (node->data[0] & 0x80) != 0)
        return false;
    value = 0;
    for (uint32_t i = 0; i < node->length; i++)
        value = value << 8 | node->data[i];
    return value != 0;
}

[[nodiscard]] int read_scrypt(ScryptParams& params, const asn_Node* algorithm) {
    AsnChildren children(algorithm);
    children.take_oid();
    AsnChildren schemes(children.take_sequence());
    AsnChildren derivation(schemes.take_sequence()), encryption(schemes.take_sequence());
    derivation.take_oid();
    AsnChildren fields(derivation.take_sequence());
    if (!children.at_end() || !schemes.at_end() || !derivation.at_end() ||
        !asn_GetOctets(fields.take_octets(), params.salt) || !read_number(params.n, fields.take_integer()) ||
        !read_number(params.r, fields.take_integer()) || !read_number(params.p, fields.take_integer()))
        return bad_format();
    uint64_t keyLength = 0;
    const asn_Node* length = fields.take_integer();
    OidInfo info;
    const bool isKnown = asn_GetOid(encryption.take_oid(), &info) == 0;
    params.cipher = isKnown ? block_cipher_named(info.name) : nullptr;
    if (params.cipher == nullptr || params.cipher->keyLength == 0)
        return err_fail(NOT_SUPPORTED_ERROR, "Encryption scheme not supported with scrypt");
    if (!fields.at_end() || !asn_GetOctets(encryption.take_octets(), params.iv) || !encryption.at_end() ||
        params.iv.size() != params.cipher->blockLength ||
        (length != nullptr && (!read_number(keyLength, length) || keyLength != params.cipher->keyLength)))
        return bad_format();
    return 0;
}

[[nodiscard]] int wrong_password() {
    return err_fail(DECRYPT_ERROR, "Decryption error");
}

[[nodiscard]] int decrypt_scrypt(SecretBuffer& data, const asn_Node* algorithm, const char* password) {
    ScryptParams params;
    if (const int error = read_scrypt(params, algorithm))
        return error;
    const size_t block = params.cipher->blockLength;
    if (data.empty() || data.size() % block != 0)
        return wrong_password();
    const ScryptCost cost = {params.n, params.r, params.p};
    if (const int error = scrypt_check_file(cost))
        return error;
    Secret<kMaxCipherKey> key;
    if (const int error = scrypt(key.data(), params.cipher->keyLength, password, strlen(password),
                                 params.salt.data(), params.salt.size(), cost))
        return error;
    CipherContext context;
    if (context.init(params.cipher->algorithm, CipherMode::cbc, false, key.data(), params.iv.data()) != 0 ||
        context.update(data.data(), data.data(), data.size()) != 0)
        return wrong_password();
    const size_t padding = ct_declassify(pad_count(data.data() + data.size() - block, block));
    data.shrink(data.size() - padding);
    return padding == 0 ? wrong_password() : 0;
}

} // namespace

int key_encrypt(AsnList& list, const SecretBuffer& plain, const char* password,
                const KeyEncryption& encryption) {
    const BlockCipher& cipher = block_cipher(encryption.cipher);
    uint8_t salt[kSalt], iv[kMaxCipherBlock];
    rng_draw(salt, sizeof salt);
    rng_draw(iv, sizeof iv);
    Secret<kMaxCipherKey> key;
    if (encryption.kdf == KeyKdf::pbkdf2) {
        pbkdf2(key.data(), cipher.keyLength, encryption.digest, password, strlen(password), salt, sizeof salt,
               encryption.iterations);
    } else if (const int error = scrypt(key.data(), cipher.keyLength, password, strlen(password), salt,
                                        sizeof salt, {encryption.n, encryption.r, encryption.p})) {
        return error;
    }
    const size_t padding = pad_bytes_needed(plain.size(), cipher.blockLength);
    SecretBuffer data(plain.size() + padding);
    memcpy(data.data(), plain.data(), plain.size());
    memset(data.data() + plain.size(), static_cast<int>(padding), padding);
    CipherContext context;
    if (context.init(encryption.cipher, CipherMode::cbc, true, key.data(), iv) != 0 ||
        context.update(data.data(), data.data(), data.size()) != 0)
        return err_fail(MISC_ERROR, "Cannot encrypt the key");
    AsnList scheme =
        asn_NewSequence(asn_LinkList(asn_NewOid(cipher.cbcName), asn_NewOctetString(iv, cipher.blockLength)));
    AsnList schemes = asn_NewSequence(asn_LinkList(kdf_algorithm(encryption, salt), std::move(scheme)));
    AsnList algorithm = asn_NewSequence(asn_LinkList(oid_node(kOidPbes2), std::move(schemes)));
    list = asn_NewSequence(asn_LinkList(std::move(algorithm), asn_NewOctetString(data.data(), data.size())));
    return 0;
}

bool key_is_scrypt(const asn_Node* algorithm) {
    AsnChildren children(algorithm);
    if (!oid_is(children.take_oid(), kOidPbes2))
        return false;
    AsnChildren schemes(children.take_sequence());
    return oid_is(AsnChildren(schemes.take_sequence()).take_oid(), kOidScrypt);
}

int key_scrypt_cost(ScryptCost& cost, const asn_Node* algorithm) {
    ScryptParams params;
    if (const int error = read_scrypt(params, algorithm))
        return error;
    cost = {params.n, params.r, params.p};
    return scrypt_check_file(cost);
}

int key_decrypt(SecretBuffer& plain, const asn_Node* encrypted, const char* password) {
    AsnChildren children(encrypted);
    const asn_Node* algorithm = children.take_sequence();
    if (!key_is_scrypt(algorithm))
        return pbe_decrypt(encrypted, password, plain, PbeReader::anyKey);
    if (!asn_GetOctets(children.take_octets(), plain) || !children.at_end())
        return err_fail(BAD_FORMAT_ERROR, "Invalid EncryptedPrivateKeyInfo format");
    const int error = decrypt_scrypt(plain, algorithm, password);
    if (error != 0)
        plain = SecretBuffer();
    return error;
}

} // namespace zul
