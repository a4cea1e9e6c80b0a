#include "pfx/pfx_mac.h"

#include <cstring>

#include "asn1/asn_build.h"
#include "asn1/asn_children.h"
#include "asn1/asn_value.h"
#include "frame/constant_time.h"
#include "frame/err.h"
#include "hash/hmac.h"
#include "pbe/kdf.h"
#include "rng/rng.h"
#include "x509/fields/subject_public_key.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr size_t kSaltLength = 20;
constexpr uint32_t kIterations = 2000;

struct PfxMac {
    int hashAlg = kDigestSha1;
    SecretBuffer salt;
    uint32_t iterations = 1; // where the field is missing
};

// compute gives the MAC's length.
size_t compute(const PfxMac& mac, const SecretBuffer& safe, const SecretBuffer& password,
               Secret<kMaxDigestSize>& out) {
    Secret<kMaxDigestSize> key;
    const size_t length = hmac_length(mac.hashAlg);
    pkcs12_kdf(key.data(), length, mac.hashAlg, Pkcs12Purpose::mac, password.data(), password.size(),
               mac.salt.data(), mac.salt.size(), mac.iterations);
    static_cast<void>(hmac_bytes(out.data(), static_cast<int>(length), safe.data(), safe.size(), key.data(),
                                 length, mac.hashAlg));
    return length;
}

SecretBuffer wide(const char* password) {
    return pkcs12_password(password, std::strlen(password));
}

bool agrees(const Secret<kMaxDigestSize>& mac, size_t length, const SecretBuffer& other) {
    return other.size() == length && bytes_equal(mac.data(), other.data(), length);
}

[[nodiscard]] int read_algorithm(const asn_Node* algorithmIdentifier, int& hashAlg) {
    char name[kAlgorithmName];
    algorithm_name(algorithmIdentifier, name);
    constexpr struct {
        const char* name;
        int hashAlg;
    } kKnown[] = {{"sha1", kDigestSha1},
                  {"sha256", kDigestSha256},
                  {"sha384", kDigestSha384},
                  {"sha512", kDigestSha512}};
    for (const auto& known : kKnown) {
        if (std::strcmp(known.name, name) == 0) {
            hashAlg = known.hashAlg;
            return 0;
        }
    }
    return err_fail(NOT_SUPPORTED_ERROR, "MAC algorithm '%s' not supported", name);
}

[[nodiscard]] int invalid() {
    return err_fail(INVALID_DATA_ERROR, "Invalid MacData");
}

[[nodiscard]] int read_iterations(const asn_Node* node, uint32_t& iterations) {
    if (node->length == 0 || (node->data[0] & 0x80) != 0)
        return invalid();
    uint8_t bytes[4];
    const int length = asn_GetIntegerBytes(node, bytes, sizeof bytes);
    iterations = 0;
    for (int i = 0; i < length; i++)
        iterations = iterations << 8 | bytes[i];
    if (length < 0 || iterations > kMaxForeignIterations)
        return err_fail(OUT_OF_RANGE_ERROR, "Iteration count of the MAC is above %u", kMaxForeignIterations);
    return iterations == 0 ? invalid() : 0;
}

[[nodiscard]] int read_mac_data(const asn_Node* macData, PfxMac& mac, SecretBuffer& value) {
    AsnChildren fields(macData);
    AsnChildren digestInfo(fields.take_sequence());
    const asn_Node* algorithm = digestInfo.take_sequence();
    if (algorithm == nullptr || !asn_GetOctets(digestInfo.take_octets(), value) || !digestInfo.at_end() ||
        !asn_GetOctets(fields.take_octets(), mac.salt))
        return invalid();
    const asn_Node* iterations = fields.take_integer();
    if (!fields.at_end())
        return invalid();
    if (const int error = read_algorithm(algorithm, mac.hashAlg))
        return error;
    return iterations == nullptr ? 0 : read_iterations(iterations, mac.iterations);
}

} // namespace

bool pfx_password_fits(const char* password) {
    return std::strlen(password) <= kMaxAllocation / 4;
}

AsnList pfx_mac_data(const SecretBuffer& safe, const char* password) {
    PfxMac mac;
    mac.salt = SecretBuffer(kSaltLength);
    mac.iterations = kIterations;
    rng_draw(mac.salt.data(), kSaltLength);
    Secret<kMaxDigestSize> value;
    const size_t length = compute(mac, safe, wide(password), value);
    // The algorithm has no NULL parameters, as in all files that this library has written.
    AsnList digestInfo = asn_NewSequence(
        asn_LinkList(asn_NewSequence(asn_NewOid("sha1")), asn_NewOctetString(value.data(), length)));
    return asn_NewSequence(asn_LinkList(std::move(digestInfo),
                                        asn_NewOctetString(mac.salt.data(), kSaltLength),
                                        asn_NewInteger(mac.iterations)));
}

int pfx_check_mac(const asn_Node* macData, const SecretBuffer& safe, const char* password) {
    PfxMac mac;
    SecretBuffer expected;
    if (const int error = read_mac_data(macData, mac, expected))
        return error;
    Secret<kMaxDigestSize> value;
    if (agrees(value, compute(mac, safe, wide(password), value), expected))
        return 0;
    // Some programs encode an empty password as no bytes, others as the two bytes of its NUL.
    if (*password == '\0' && agrees(value, compute(mac, safe, SecretBuffer(), value), expected))
        return 0;
    return err_fail(SIGNATURE_ERROR, "MAC does not match: wrong password, or the data were changed");
}

} // namespace zul
