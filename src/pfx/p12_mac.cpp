#include "pfx/p12_mac.h"

#include <cstring>

#include "asn1/asn_build.h"
#include "asn1/asn_children.h"
#include "asn1/asn_value.h"
#include "frame/constant_time.h"
#include "frame/err.h"
#include "hash/hmac.h"
#include "key/key_oids.h"
#include "pbe/kdf.h"
#include "pbe/pbe_params.h"
#include "rng/rng.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr std::string_view kOidPbmac1 = "\x2A\x86\x48\x86\xF7\x0D\x01\x05\x0E"sv; // 1.2.840.113549.1.5.14
constexpr size_t kLeastPbmac1Key = 20, kMostPbmac1Key = kMaxDigestBlockSize;

struct Digest {
    const char *oid, *hmac; // names as oid_text gives them
    int hashAlg;
};
constexpr Digest kDigests[] = {
    {"sha1", "hmacWithSHA1", kDigestSha1},
    {"sha224", "hmacWithSHA224", kDigestSha224},
    {"sha256", "hmacWithSHA256", kDigestSha256},
    {"sha384", "hmacWithSHA384", kDigestSha384},
    {"sha512", "hmacWithSHA512", kDigestSha512},
    {"2.16.840.1.101.3.4.2.6", "1.2.840.113549.2.13", kDigestSha512_256},
};

[[nodiscard]] int invalid() {
    return err_fail(BAD_FORMAT_ERROR, "Invalid MacData");
}

// read_digest reads an AlgorithmIdentifier of a digest, or of an HMAC. Its parameters are NULL or absent.
[[nodiscard]] int read_digest(int& hashAlg, const asn_Node* algorithm, const char* Digest::*name) {
    AsnChildren children(algorithm);
    char text[kOidText];
    oid_text(children.take_oid(), text);
    const asn_Node* null = children.take_if(kAsnUniversal, kAsnNull);
    if (null != nullptr && (null->length != 0 || null->ndef != 0))
        return invalid();
    if (!children.at_end() || text[0] == '\0')
        return invalid();
    for (const Digest& digest : kDigests) {
        if (strcmp(digest.*name, text) == 0) {
            hashAlg = digest.hashAlg;
            return 0;
        }
    }
    return err_fail(NOT_SUPPORTED_ERROR, "MAC algorithm '%s' not supported", text);
}

// read_number reads an INTEGER from 1 to most.
[[nodiscard]] int read_number(uint32_t& value, const asn_Node* node, uint32_t most, const char* what) {
    uint8_t bytes[4];
    if (node == nullptr || node->length == 0 || (node->data[0] & 0x80) != 0)
        return invalid();
    const int length = asn_GetIntegerBytes(node, bytes, sizeof bytes);
    value = 0;
    for (int i = 0; i < length; i++)
        value = value << 8 | bytes[i];
    if (length < 0 || value > most)
        return err_fail(OUT_OF_RANGE_ERROR, "%s of the MAC is above %u", what, static_cast<unsigned>(most));
    return value == 0 ? invalid() : 0;
}

[[nodiscard]] int read_pbmac1(P12Mac& mac, const asn_Node* algorithm) {
    AsnChildren children(algorithm);
    children.take_oid();
    AsnChildren schemes(children.take_sequence());
    AsnChildren derivation(schemes.take_sequence());
    const asn_Node* authentication = schemes.take_sequence();
    char kdf[kOidText];
    oid_text(derivation.take_oid(), kdf);
    AsnChildren fields(derivation.take_sequence());
    if (!children.at_end() || !schemes.at_end() || !derivation.at_end() || authentication == nullptr)
        return invalid();
    if (strcmp(kdf, "pkcs5PBKDF2") != 0)
        return err_fail(NOT_SUPPORTED_ERROR, "Key derivation '%s' of the MAC not supported", kdf);
    uint32_t keyLength = 0;
    if (!asn_GetOctets(fields.take_octets(), mac.salt))
        return invalid();
    int error = read_number(mac.iterations, fields.take_integer(), kMaxForeignIterations, "Iteration count");
    if (error == 0) // the field is optional in PBKDF2, not here
        error = read_number(keyLength, fields.take_integer(), kMostPbmac1Key, "Key length");
    if (error != 0)
        return error;
    if (keyLength < kLeastPbmac1Key)
        return err_fail(BAD_FORMAT_ERROR, "The key of the MAC is shorter than %u bytes",
                        static_cast<unsigned>(kLeastPbmac1Key));
    mac.keyLength = keyLength;
    mac.prf = kDigestSha1;
    if (const asn_Node* prf = fields.take_sequence(); prf != nullptr)
        error = read_digest(mac.prf, prf, &Digest::hmac);
    if (error == 0 && !fields.at_end())
        error = invalid();
    return error != 0 ? error : read_digest(mac.hashAlg, authentication, &Digest::hmac);
}

void derive(Secret<kMostPbmac1Key>& key, const P12Mac& mac, const SecretBuffer& password) {
    if (mac.isPbmac1)
        pbkdf2(key.data(), mac.keyLength, mac.prf, password.data(), password.size(), mac.salt.data(),
               mac.salt.size(), mac.iterations);
    else
        pkcs12_kdf(key.data(), mac.keyLength, mac.hashAlg, Pkcs12Purpose::mac, password.data(),
                   password.size(), mac.salt.data(), mac.salt.size(), mac.iterations);
}

// compute gives the MAC's length.
size_t compute(Secret<kMaxDigestSize>& value, const P12Mac& mac, const SecretBuffer& safe,
               const SecretBuffer& password) {
    Secret<kMostPbmac1Key> key;
    derive(key, mac, password);
    const size_t length = hmac_length(mac.hashAlg);
    static_cast<void>(hmac_bytes(value.data(), static_cast<int>(length), safe.data(), safe.size(), key.data(),
                                 mac.keyLength, mac.hashAlg));
    return length;
}

AsnList hmac_algorithm(int hashAlg) {
    return asn_NewSequence(asn_LinkList(asn_NewOid(p12_hmac_name(hashAlg)), asn_NewNull()));
}

AsnList pbmac1_algorithm(const P12Mac& mac) {
    AsnList fields =
        asn_LinkList(asn_NewOctetString(mac.salt.data(), mac.salt.size()), asn_NewInteger(mac.iterations),
                     asn_NewInteger(static_cast<uint32_t>(mac.keyLength)), hmac_algorithm(mac.prf));
    AsnList kdf =
        asn_NewSequence(asn_LinkList(asn_NewOid("pkcs5PBKDF2"), asn_NewSequence(std::move(fields))));
    AsnList parameters = asn_NewSequence(asn_LinkList(std::move(kdf), hmac_algorithm(mac.hashAlg)));
    return asn_NewSequence(asn_LinkList(oid_node(kOidPbmac1), std::move(parameters)));
}

} // namespace

const char* p12_hmac_name(int hashAlg) {
    for (const Digest& digest : kDigests)
        if (digest.hashAlg == hashAlg)
            return digest.hmac;
    return "";
}

int p12_read_mac(P12Mac& mac, const asn_Node* macData) {
    AsnChildren fields(macData);
    AsnChildren digestInfo(fields.take_sequence());
    const asn_Node* algorithm = digestInfo.take_sequence();
    if (algorithm == nullptr || !asn_GetOctets(digestInfo.take_octets(), mac.value) || !digestInfo.at_end() ||
        !asn_GetOctets(fields.take_octets(), mac.salt))
        return invalid();
    const asn_Node* iterations = fields.take_integer();
    if (!fields.at_end())
        return invalid();
    mac.isPbmac1 = oid_is(AsnChildren(algorithm).take_oid(), kOidPbmac1);
    if (mac.isPbmac1) // the other fields are of no meaning then
        return read_pbmac1(mac, algorithm);
    if (const int error = read_digest(mac.hashAlg, algorithm, &Digest::oid))
        return error;
    mac.keyLength = hmac_length(mac.hashAlg);
    return iterations == nullptr
               ? 0
               : read_number(mac.iterations, iterations, kMaxForeignIterations, "Iteration count");
}

int p12_check_mac(const P12Mac& mac, const SecretBuffer& safe, P12Password& password, P12Work& work) {
    for (size_t form = 0; form < (mac.isPbmac1 ? password.byte_forms() : password.wide_forms()); form++) {
        if (const int error = work.take(mac.iterations))
            return error;
        Secret<kMaxDigestSize> value;
        const size_t length =
            compute(value, mac, safe, mac.isPbmac1 ? password.bytes(form) : password.wide(form));
        if (mac.value.size() == length && bytes_equal(mac.value.data(), value.data(), length)) {
            mac.isPbmac1 ? password.prefer_bytes(form) : password.prefer_wide(form);
            return 0;
        }
    }
    return err_fail(DECRYPT_ERROR, "The MAC does not match: wrong password (or the file was changed)");
}

AsnList p12_new_mac(const SecretBuffer& safe, const P12Password& password, P12MacKind kind) {
    constexpr size_t kSalt = 16, kLegacySalt = 20, kKey = 32;
    const bool isLegacy = kind == P12MacKind::legacy;
    P12Mac mac;
    mac.isPbmac1 = kind == P12MacKind::pbmac1;
    mac.hashAlg = isLegacy ? kDigestSha1 : kDigestSha256;
    mac.prf = kDigestSha256;
    mac.keyLength = mac.isPbmac1 ? kKey : hmac_length(mac.hashAlg);
    mac.iterations = isLegacy ? kP12LegacyIterations : kP12Iterations;
    mac.salt = SecretBuffer(isLegacy ? kLegacySalt : kSalt);
    rng_draw(mac.salt.data(), mac.salt.size());
    Secret<kMaxDigestSize> value;
    const size_t length = compute(value, mac, safe, mac.isPbmac1 ? password.bytes(0) : password.wide(0));
    AsnList digestInfo =
        asn_NewSequence(asn_LinkList(mac.isPbmac1 ? pbmac1_algorithm(mac) : asn_NewHashAlgId(mac.hashAlg),
                                     asn_NewOctetString(value.data(), length)));
    if (!mac.isPbmac1)
        return asn_NewSequence(asn_LinkList(std::move(digestInfo),
                                            asn_NewOctetString(mac.salt.data(), mac.salt.size()),
                                            asn_NewInteger(mac.iterations)));
    constexpr std::string_view kUnused = "NOT USED"; // a salt has to be there, and is not read
    return asn_NewSequence(
        asn_LinkList(std::move(digestInfo), asn_NewOctetString(kUnused.data(), kUnused.size())));
}

} // namespace zul
