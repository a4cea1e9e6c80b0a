#include "x509/fields/certificate.h"

#include <climits>
#include <cstring>

#include "asn1/asn_build.h"
#include "asn1/asn_children.h"
#include "asn1/asn_element.h"
#include "asn1/asn_value.h"
#include "frame/err.h"
#include "x509/fields/x509_time.h"
#include "zulcore.h"

namespace zul {
namespace {

bool is_sequence(const asn_Node* node) {
    return asn_is(node, kAsnConstructed, kAsnSequence);
}

bool is_bit_string(const asn_Node* node) {
    return asn_is(node, kAsnUniversal, kAsnBitString) || asn_is(node, kAsnConstructed, kAsnBitString);
}

bool is_time(const asn_Node* node) {
    return asn_is(node, kAsnUniversal, kAsnUtcTime) || asn_is(node, kAsnUniversal, kAsnGeneralizedTime);
}

const asn_Node* time_or_null(const asn_Node* node) {
    return is_time(node) ? node : nullptr;
}

// is_signed_object tells whether an object has what certificates, requests and CRLs have in common.
bool is_signed_object(const SignedFields& fields) {
    return fields.signatureValue != nullptr &&
           AsnChildren(fields.signatureAlgorithm).is(kAsnUniversal, kAsnOid);
}

// nth_sequence gives the n-th SEQUENCE, from 1, directly inside an element.
const asn_Node* nth_sequence(const asn_Node* parent, int n) {
    for (AsnChildren children(parent); !children.at_end();)
        if (const asn_Node* child = children.take(); is_sequence(child) && --n == 0)
            return child;
    return nullptr;
}

bool element_is_der(const asn_Node* element) {
    return asn_IsDer(element, asn_ElementEnd(element));
}

} // namespace

SignedFields signed_fields(const asn_Node* object) {
    SignedFields fields;
    for (AsnChildren children = AsnChildren::of_sequence(object); !children.at_end();) {
        const asn_Node* child = children.take();
        if (is_sequence(child) && fields.toBeSigned == nullptr)
            fields.toBeSigned = child;
        else if (is_sequence(child) && fields.signatureAlgorithm == nullptr)
            fields.signatureAlgorithm = child;
        else if (is_bit_string(child) && fields.signatureValue == nullptr)
            fields.signatureValue = child;
    }
    return fields;
}

bool x509_is_certificate(const asn_Node* object) {
    const SignedFields fields = signed_fields(object);
    // An attribute certificate (RFC 5755) has its holder where a certificate has its signature algorithm.
    return is_signed_object(fields) &&
           AsnChildren(nth_sequence(fields.toBeSigned, 1)).is(kAsnUniversal, kAsnOid) &&
           is_time(AsnChildren(nth_sequence(fields.toBeSigned, 3)).peek());
}

bool x509_is_request(const asn_Node* object) {
    const SignedFields fields = signed_fields(object);
    const asn_Node* version = AsnChildren(fields.toBeSigned).take_integer();
    // A certificate of version 1 may have the serial number 0.
    return is_signed_object(fields) && asn_GetInt(version) == 0 && !x509_is_certificate(object);
}

CertificateFields certificate_fields(const asn_Node* certificate) {
    CertificateFields fields;
    static_cast<SignedFields&>(fields) = signed_fields(certificate);
    AsnChildren children(fields.toBeSigned);
    const asn_Node* version = children.take_if(kAsnExplicit, 0);
    fields.version = version != nullptr ? AsnChildren(version).peek() : nullptr;
    if (version != nullptr && fields.version == nullptr)
        fields.version = version;
    for (int sequences = 0; !children.at_end();) {
        const asn_Node* child = children.take();
        if (asn_is(child, kAsnUniversal, kAsnInteger) && fields.serialNumber == nullptr && sequences == 0)
            fields.serialNumber = child;
        else if (asn_is(child, kAsnExplicit, 3) && fields.extensions == nullptr)
            fields.extensions = child;
        if (!is_sequence(child))
            continue;
        switch (++sequences) {
        case 2:
            fields.issuer = child;
            break;
        case 3:
            fields.validity = child;
            break;
        case 4:
            fields.subject = child;
            break;
        case 5:
            fields.subjectPublicKeyInfo = child;
            break;
        }
    }
    AsnChildren times(fields.validity);
    fields.notBefore = time_or_null(times.take());
    fields.notAfter = time_or_null(times.take());
    return fields;
}

RequestFields request_fields(const asn_Node* request) {
    RequestFields fields;
    static_cast<SignedFields&>(fields) = signed_fields(request);
    fields.version = AsnChildren(fields.toBeSigned).take_integer();
    fields.subject = nth_sequence(fields.toBeSigned, 1);
    fields.subjectPublicKeyInfo = nth_sequence(fields.toBeSigned, 2);
    return fields;
}

bool same_name(const asn_Node* a, const asn_Node* b) {
    if (a == nullptr || b == nullptr)
        return false;
    if (asn_SameElement(a, b))
        return true;
    if (element_is_der(a) && element_is_der(b))
        return false;
    const AsnList derA = asn_ToDer(asn_CopyElement(a)), derB = asn_ToDer(asn_CopyElement(b));
    return asn_SameElement(derA.head(), derB.head());
}

int certificate_version(const CertificateFields& certificate, int* version) {
    const int64_t number = certificate.version == nullptr ? 0 : asn_GetInt(certificate.version);
    if (number < 0 || number >= INT_MAX)
        return err_fail(BAD_FORMAT_ERROR, "Invalid version in cert");
    *version = static_cast<int>(number) + 1;
    return 0;
}

AsnList issuer_and_serial_number(const CertificateFields& certificate) {
    if (certificate.issuer == nullptr || certificate.serialNumber == nullptr)
        return {};
    AsnList issuer = asn_ToDer(asn_CopyElement(certificate.issuer));
    AsnList serialNumber = asn_ToDer(asn_CopyElement(certificate.serialNumber));
    return asn_NewSequence(asn_LinkList(std::move(issuer), std::move(serialNumber)));
}

int validity_state(const CertificateFields& certificate) {
    if (certificate.validity == nullptr)
        return err_fail(BAD_FORMAT_ERROR, "Cannot find Validity field in cert");
    char now[kAsnTimeText], notBefore[kAsnTimeText], notAfter[kAsnTimeText];
    asn_format_time(utc_now(), now);
    asn_time_text(certificate.notBefore, notBefore);
    asn_time_text(certificate.notAfter, notAfter);
    if (notBefore[0] == '\0' || notAfter[0] == '\0')
        return err_fail(BAD_FORMAT_ERROR, "Missing time field in cert");
    return strcmp(now, notBefore) >= 0 && strcmp(now, notAfter) <= 0 ? 0 : -1;
}

} // namespace zul
