// OCSPRequest (RFC 6960, 4.1.1).
#include "ocsp/ocsp_request.h"

#include <string_view>
#include <utility>

#include "asn1/asn_build.h"
#include "asn1/asn_children.h"
#include "asn1/asn_element.h"
#include "asn1/asn_encode.h"
#include "asn1/asn_value.h"
#include "frame/err.h"
#include "hash/digest.h"
#include "x509/fields/certificate.h"
#include "x509/fields/hex_value.h"
#include "x509/fields/thumbprint.h"
#include "x509/input/x509_input.h"
#include "zulcore.h"

namespace zul {

namespace {

// subject_public_key gives the bits of the key itself, without its algorithm.
bool subject_public_key(const asn_Node* subjectPublicKeyInfo, SecretBuffer& key) {
    const AsnList der = asn_ToDer(asn_CopyElement(subjectPublicKeyInfo));
    AsnChildren children(der.head());
    return children.take_sequence() != nullptr &&
           asn_GetBitString(children.take_if(kAsnUniversal, kAsnBitString), key);
}

// issuer_hashes makes the CertID's issuerNameHash and issuerKeyHash.
[[nodiscard]] int issuer_hashes(const CertificateFields& issuer, int algorithm, AsnList& hashes) {
    SecretBuffer key;
    if (issuer.subject == nullptr || !subject_public_key(issuer.subjectPublicKeyInfo, key))
        return err_fail(BAD_FORMAT_ERROR, "No subject or public key in issuer certificate");
    uint8_t digest[kMaxDigestSize];
    if (const int error = der_digest(digest, asn_CopyElement(issuer.subject).head(), algorithm))
        return error;
    AsnList nameHash = asn_NewOctetString(digest, digest_length(algorithm));
    const int length =
        hash_bytes(digest, sizeof digest, key.data(), static_cast<int64_t>(key.size()), algorithm);
    if (length < 0)
        return -length;
    hashes = asn_Link(std::move(nameHash), asn_NewOctetString(digest, static_cast<size_t>(length)));
    return 0;
}

bool is_serial_text(std::string_view text) {
    return text.size() >= 3 && text.starts_with("#x");
}

// The bytes are taken as they are. The caller adds a sign octet where one is needed.
[[nodiscard]] int serial_from_text(std::string_view text, AsnList& serial) {
    if (text.size() / 2 > kAsnMaxContent)
        return err_fail(BAD_LENGTH_ERROR, "Serial number is too long");
    SecretBuffer bytes;
    if (!hex_value(text, bytes))
        return err_fail(INVALID_DATA_ERROR, "Serial number is not hexadecimal");
    serial = asn_NewString(kAsnInteger, bytes.data(), bytes.size());
    return 0;
}

[[nodiscard]] int serial_of_certificate(const char* certFile, const CertificateFields& issuer,
                                        AsnList& serial) {
    AsnList object;
    if (const int error = x509_read_certificate(certFile, object))
        return error;
    const CertificateFields certificate = certificate_fields(object.head());
    const asn_Node* number = certificate.serialNumber;
    if (number == nullptr || number->data == nullptr)
        return err_fail(BAD_FORMAT_ERROR, "No Serial Number found in cert");
    if (!same_name(certificate.issuer, issuer.subject))
        return err_fail(NO_MATCH_ERROR, "Certificate not issued by given issuer certificate");
    serial = asn_NewString(kAsnInteger, number->data, number->length);
    return 0;
}

} // namespace

int ocsp_request(const char* issuerCert, const char* certOrSerial, int hashAlgorithm, SecretBuffer& text) {
    AsnList object, hashes, serial;
    int error = x509_read_certificate(issuerCert, object);
    if (error != 0)
        return error;
    if (hashAlgorithm < kDigestSha1 || hashAlgorithm > kDigestSha224)
        return err_fail(BAD_FLAG_ERROR, "Invalid digest algorithm");
    const CertificateFields issuer = certificate_fields(object.head());
    error = issuer_hashes(issuer, hashAlgorithm, hashes);
    if (error == 0)
        error = is_serial_text(certOrSerial) ? serial_from_text(certOrSerial, serial)
                                             : serial_of_certificate(certOrSerial, issuer, serial);
    if (error != 0)
        return error;

    AsnList certId =
        asn_NewSequence(asn_LinkList(asn_NewHashAlgId(hashAlgorithm), std::move(hashes), std::move(serial)));
    AsnList requestList = asn_NewSequence(asn_NewSequence(std::move(certId)));
    const AsnList request = asn_NewSequence(asn_NewSequence(std::move(requestList)));
    text = asn_EncodeBase64(request.head());
    return text.empty() ? err_fail(INVALID_DATA_ERROR, "Invalid ASN.1 data") : 0;
}

} // namespace zul
