#include <cstdlib>
#include <cstring>
#include <string>

#include "asn1/asn_element.h"
#include "asn1/asn_encode.h"
#include "asn1/asn_parse.h"
#include "x509/fields/certificate_extensions.h"
#include "x509/fields/subject_public_key.h"
#include "x509/input/der_source.h"
#include "x509/input/x509_input.h"
#include "x509/names/distinguished_name.h"
#include "zulcore.h"

// The readers of fields return for any object; DER that is made from it parses to the same elements.

using namespace zul;

static void require(bool claim) {
    if (!claim)
        std::abort();
}

static void check_der(const asn_Node* object) {
    const AsnList der = asn_ToDer(asn_CopyList(object));
    if (!der)
        return;
    const SecretBuffer encoding = asn_Encode(der);
    const AsnList again = asn_ParseBytes(encoding.data(), encoding.size());
    require(asn_IsDer(der.head()) && asn_SameElement(der.head(), again.head()) &&
            asn_EncodeElement(again.head()).size() == encoding.size());
}

static void read_name_and_key(const asn_Node* name, const asn_Node* info) {
    SecretBuffer text;
    for (const int options : {0, ZUL_X509_LATIN1})
        if (name_text(name, nullptr, options, text) == 0)
            require(strlen(text.text()) == text.size());
    char algorithm[kAlgorithmName];
    public_key_algorithm(info, algorithm);
    RsaKey rsa;
    DsaPublicKey dsa;
    require(!rsa_public_key_of(info, rsa) || rsa.bits > 1);
    require(dsa_public_key_of(info, dsa) != DsaKeyState::good || mtCompare(dsa.y, dsa.p) < 0);
}

static void read_certificate(const asn_Node* object) {
    const CertificateFields fields = certificate_fields(object);
    read_name_and_key(fields.subject, fields.subjectPublicKeyInfo);
    read_name_and_key(fields.issuer, nullptr);
    int version = 0;
    require(certificate_version(fields, &version) == (version > 0 ? 0 : int{BAD_FORMAT_ERROR}));
    require(validity_state(fields) >= -1);
    const AsnList issuerAndSerial = issuer_and_serial_number(fields);
    require(!issuerAndSerial || asn_IsDer(issuerAndSerial.head()));

    char usage[kKeyUsageText + 1];
    key_usage_text(key_usage_flags(fields), usage);
    is_ca(fields);
    subject_key_identifier(fields);
    authority_key_identifier(fields);
    SecretBuffer text;
    for (const auto reader :
         {extended_key_usage_text, rfc822_name, crl_distribution_point_uri, authority_info_access_uri}) {
        const int result = reader(fields, text);
        require((result == 0 || result == INVALID_DATA_ERROR) && strlen(text.text()) == text.size());
    }
}

static void query(const char* certificate) {
    char text[512];
    for (const char* word :
         {"version", "serialNumber", "signatureAlgorithm", "signatureValue", "sigAlgID", "keyUsageString",
          "keyUsageFlags", "notBefore", "notAfter", "issuerName", "subjectName", "subjectPublicKeyAlgorithm",
          "subjectKeyIdentifier", "authorityKeyIdentifier", "rfc822Name", "isCA", "extKeyUsageString",
          "cRLDistributionPointsURI", "authorityInfoAccessURI"}) {
        const bool isText = X509_QueryCert(nullptr, 0, nullptr, word, ZUL_QUERY_GETTYPE) == 2;
        const int size = X509_QueryCert(nullptr, 0, certificate, word, 0);
        const int result = X509_QueryCert(text, sizeof text - 1, certificate, word, 0);
        require(!isText || result < 0 || static_cast<int>(strlen(text)) == result);
        require(!isText || size >= static_cast<int>(sizeof text) || size == result);
    }
    X509_CertThumb(certificate, text, sizeof text - 1, 0);
    X509_HashIssuerAndSN(certificate, text, sizeof text - 1, 0);
    X509_CertIsValidNow(certificate, 0);
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const AsnList object = asn_ParseBytes(data, size);
    if (object) {
        check_der(object.head());
        read_certificate(object.head()); // readers do not rely on the kind
        const RequestFields request = request_fields(object.head());
        if (x509_is_request(object.head()))
            read_name_and_key(request.subject, request.subjectPublicKeyInfo);
        if (const SecretBuffer text = asn_EncodeBase64(object.head()); text.size() > 256) {
            AsnList again;
            const bool isObject = x509_object_from_text(text.text(), again);
            require(!isObject || asn_SameElement(object.head(), again.head()));
            if (x509_is_certificate(again.head()))
                query(text.text());
        }
    }
    const std::string text(reinterpret_cast<const char*>(data), size);
    if (text.find("-----BEGIN") != std::string::npos) {
        AsnList fromText;
        DerSource source;
        require(!x509_object_from_text(text.c_str(), fromText) || source.open_text(text.c_str()));
    }
    return 0;
}
