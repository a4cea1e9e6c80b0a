#include "cert/path/web_rules.h"

#include "cert/fields/general_name.h"
#include "frame/err.h"
#include "key/key.h"
#include "zulcore.h"

namespace zul {

namespace {

constexpr size_t kLeastRsaBits = 2048, kMostSerialOctets = 20;
constexpr int64_t kDay = int64_t{24} * 60 * 60;

// The longest validity of a certificate by the day that it begins on (6.3.2, and ballot SC-081v3 from 2026
// on), the latest first.
struct Lifetime {
    int64_t from; // seconds since 1970
    int days;
};
constexpr Lifetime kLifetimes[] = {
    {1868227200, 47},     // 2029-03-15
    {1805068800, 100},    // 2027-03-15
    {1773532800, 200},    // 2026-03-15
    {1598918400, 398},    // 2020-09-01
    {1519862400, 825},    // 2018-03-01
    {INT64_MIN, 60 * 31}, // 60 months
};

} // namespace

int check_web_key(const SignerKey& key) {
    if (key.key() == nullptr)
        return err_fail(BAD_KEY_LEN_ERROR, "A DSA key, which the web does not use");
    return !key.key()->is_rsa() || key.bits() >= kLeastRsaBits
               ? 0
               : err_fail(BAD_KEY_LEN_ERROR, "An RSA key of %d bits; the web demands %d",
                          static_cast<int>(key.bits()), static_cast<int>(kLeastRsaBits));
}

int check_web_certificate(const CertificateView& certificate) {
    if (signature_uses_sha1(certificate.signatureAlgorithm))
        return err_fail(NOT_SUPPORTED_ERROR, "Signed with SHA-1, which the web refuses");
    DerView serial = certificate.serialNumber;
    const bool isPositive = serial[0] < 0x80 && !(serial.size == 1 && serial[0] == 0);
    return isPositive && serial.size <= kMostSerialOctets
               ? 0
               : err_fail(OUT_OF_RANGE_ERROR, "The serial number is not positive, or longer than %d octets",
                          static_cast<int>(kMostSerialOctets));
}

int check_web_leaf(const CertificateView& certificate, const CertExtensions& extensions) {
    bool hasName = false;
    GeneralNameReader names(extensions.subjectAltName);
    GeneralNameView name;
    while (names.next(name))
        hasName = hasName || name.type == GeneralNameType::dNSName || name.type == GeneralNameType::iPAddress;
    if (!hasName)
        return err_fail(NO_MATCH_ERROR, "No dNSName or iPAddress in subjectAltName");
    const Lifetime* row = kLifetimes;
    while (certificate.notBefore < row->from)
        row++;
    // Both ends belong to the validity.
    return certificate.notAfter - certificate.notBefore + 1 <= row->days * kDay
               ? 0
               : err_fail(OUT_OF_RANGE_ERROR, "It is valid for longer than %d days", row->days);
}

} // namespace zul
