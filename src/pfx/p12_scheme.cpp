#include "pfx/p12_scheme.h"

#include <cstring>

#include "asn1/asn_build.h"
#include "asn1/asn_children.h"
#include "asn1/asn_value.h"
#include "cipher/padding.h"
#include "frame/constant_time.h"
#include "frame/err.h"
#include "frame/text.h"
#include "hash/digest.h"
#include "key/key_der.h"
#include "key/key_encryption.h"
#include "key/key_oids.h"
#include "pbe/pbe_cipher.h"
#include "rng/rng.h"
#include "zulcore.h"

namespace zul {
namespace {

// The scheme with two keys of Triple DES is that with three of them but for the key's length.
constexpr std::string_view kOidTwoKeys = "\x2A\x86\x48\x86\xF7\x0D\x01\x0C\x01\x04"sv;
constexpr uint8_t kThreeKeysArc = 3;
constexpr PbeScheme kTwoKeys = {"pbeWithSHAAnd2-KeyTripleDES-CBC",
                                PbeKind::pkcs12,
                                kDigestSha1,
                                CipherAlgorithm::tdea,
                                0 /* bits of RC2 */,
                                16};

[[nodiscard]] int read_scheme(PbeParams& params, const asn_Node* algorithm) {
    const asn_Node* oid = AsnChildren(algorithm).take_oid();
    if (!oid_is(oid, kOidTwoKeys))
        return pbe_read_algorithm(params, algorithm, PbeReader::anyKey);
    const AsnList copy = asn_CopyElement(algorithm);
    const asn_Node* copied = AsnChildren(copy.head()).take_oid();
    copied->data[copied->length - 1] = kThreeKeysArc;
    const int error = pbe_read_algorithm(params, copy.head(), PbeReader::anyKey);
    pbe_take_scheme(params, &kTwoKeys);
    return error;
}

void derive_key(PbeParams& params, Secret<kPbeMaxKey>& key) {
    pbe_derive_key(params, key);
    if (params.scheme == &kTwoKeys) { // the first key is also the third
        memcpy(key.data() + 16, key.data(), 8);
        params.keyLength = 24;
    }
}

SecretBuffer copy_of(const SecretBuffer& bytes) {
    SecretBuffer copy(bytes.size());
    if (!bytes.empty())
        memcpy(copy.data(), bytes.data(), bytes.size());
    return copy;
}

// try_password decrypts under the password in params: false if that does not give one SEQUENCE.
[[nodiscard]] int try_password(AsnList& list, PbeParams& params, const SecretBuffer& data, bool& isRight) {
    const size_t block = params.ivLength;
    Secret<kPbeMaxKey> key;
    derive_key(params, key);
    SecretBuffer plain = copy_of(data);
    if (const int error = pbe_decrypt_blocks(params, key, plain.data(), plain.size() / block))
        return error;
    const size_t padding = ct_declassify(pad_count(plain.data() + plain.size() - block, block));
    isRight = padding != 0 && key_parse(plain.data(), plain.size() - padding, list);
    if (!isRight)
        err_clear(); // the parser's text
    return 0;
}

[[nodiscard]] int decrypt_scrypt(AsnList& list, const asn_Node* algorithm, const SecretBuffer& data,
                                 P12Password& password, P12Work& work) {
    ScryptCost cost{};
    if (const int error = key_scrypt_cost(cost, algorithm))
        return error;
    const AsnList encrypted = asn_NewSequence(
        asn_LinkList(asn_CopyElement(algorithm), asn_NewOctetString(data.data(), data.size())));
    for (size_t form = 0; form < password.byte_forms(); form++) {
        SecretBuffer plain;
        err_clear();
        if (const int error = work.take_scrypt(cost))
            return error;
        const int error = key_decrypt(plain, encrypted.head(), password.bytes(form).text());
        if (error != 0 && error != DECRYPT_ERROR)
            return error;
        if (error == 0 && key_parse(plain.data(), plain.size(), list)) {
            password.prefer_bytes(form);
            return 0;
        }
    }
    err_clear();
    return DECRYPT_ERROR;
}

} // namespace

const char* oid_text(const asn_Node* oid, char (&out)[kOidText]) {
    OidInfo info;
    out[0] = '\0';
    if (asn_GetOid(oid, &info) == 0)
        str_copy(out, info.name, kOidText);
    else if (oid_ToDotted(oid, out, kOidText - 1) < 0)
        out[0] = '\0';
    return out;
}

P12Scheme p12_describe(const asn_Node* algorithm) {
    P12Scheme scheme;
    const auto set = [](auto& out, const char* text) { str_copy(out, text, sizeof out); };
    if (key_is_scrypt(algorithm)) {
        set(scheme.name, "PBES2");
        set(scheme.kdf, "scrypt");
        return scheme;
    }
    PbeContext context;
    const PbeParams& params = *context;
    if (read_scheme(*context, algorithm) != 0) {
        err_clear();
        oid_text(AsnChildren(algorithm).take_oid(), scheme.name);
        return scheme;
    }
    scheme.iterations = params.iterations;
    if (params.scheme->kind != PbeKind::pbes2) {
        set(scheme.name, params.scheme->name);
        return scheme;
    }
    set(scheme.name, "PBES2");
    set(scheme.kdf, "PBKDF2");
    set(scheme.prf, params.prf->name);
    set(scheme.cipher, block_cipher(params.cipher).cbcName);
    return scheme;
}

int P12Work::take(uint64_t iterations) {
    if (iterations > left_)
        return err_fail(OUT_OF_RANGE_ERROR, "The file asks for too many iterations in all");
    left_ -= iterations;
    return 0;
}

int P12Work::take_scrypt(const ScryptCost& cost) {
    constexpr uint64_t kPerKib = 6;
    return take((128 * cost.n * cost.r * cost.p / 1024 + 1) * kPerKib);
}

int p12_decrypt(AsnList& list, const asn_Node* algorithm, const SecretBuffer& data, P12Password& password,
                P12Work& work) {
    if (key_is_scrypt(algorithm))
        return decrypt_scrypt(list, algorithm, data, password, work);
    PbeContext context;
    PbeParams& params = *context;
    if (const int error = read_scheme(params, algorithm))
        return error;
    if (data.empty() || data.size() % params.ivLength != 0)
        return err_fail(BAD_FORMAT_ERROR, "Encrypted data are not whole blocks");
    const bool isWide = params.scheme->kind == PbeKind::pkcs12;
    const size_t keyLength = params.keyLength;
    for (size_t form = 0; form < (isWide ? password.wide_forms() : password.byte_forms()); form++) {
        if (const int error = work.take(params.iterations))
            return error;
        params.password = copy_of(isWide ? password.wide(form) : password.bytes(form));
        params.bmp = isWide;
        params.keyLength = keyLength;
        bool isRight = false;
        if (const int error = try_password(list, params, data, isRight))
            return error;
        if (isRight) {
            isWide ? password.prefer_wide(form) : password.prefer_bytes(form);
            return 0;
        }
    }
    return DECRYPT_ERROR;
}

int p12_encrypt(AsnList& algorithm, SecretBuffer& data, const SecretBuffer& plain,
                const P12Password& password, P12Strength strength) {
    constexpr size_t kSalt = 16, kLegacySalt = 8;
    const bool isModern = strength == P12Strength::modern;
    PbeContext context;
    PbeParams& params = *context;
    pbe_take_scheme(params, pbe_scheme(isModern ? "pkcs5PBES2" : "pbeWithSHAAnd3-KeyTripleDES-CBC"));
    if (isModern) {
        pbe_take_cipher(params, block_cipher(CipherAlgorithm::aes256));
        params.prf = pbe_prf_of(kDigestSha256);
        rng_draw(params.iv.data(), params.ivLength);
    }
    params.iterations = isModern ? kP12Iterations : kP12LegacyIterations;
    params.salt = SecretBuffer(isModern ? kSalt : kLegacySalt);
    rng_draw(params.salt.data(), params.salt.size());
    params.password = copy_of(isModern ? password.bytes(0) : password.wide(0));
    params.bmp = !isModern;
    Secret<kPbeMaxKey> key;
    derive_key(params, key);

    const size_t padding = pad_bytes_needed(plain.size(), params.ivLength);
    data = SecretBuffer(plain.size() + padding);
    memcpy(data.data(), plain.data(), plain.size());
    memset(data.data() + plain.size(), static_cast<int>(padding), padding);
    algorithm = pbe_algorithm_list(params);
    return pbe_encrypt_blocks(params, key, data.data(), data.size() / params.ivLength);
}

} // namespace zul
