// OCSPResponse and BasicOCSPResponse (RFC 6960, 4.2.1).
#include "ocsp/ocsp_response.h"

#include <iterator>
#include <utility>

#include "asn1/asn_build.h"
#include "asn1/asn_children.h"
#include "asn1/asn_element.h"
#include "asn1/asn_input.h"
#include "asn1/asn_parse.h"
#include "asn1/asn_value.h"
#include "asn1/byte_stream.h"
#include "encode/hex.h"
#include "frame/err.h"
#include "frame/text.h"
#include "platform/platform.h"
#include "x509/fields/certificate.h"
#include "x509/input/x509_input.h"
#include "x509/verify/verify.h"
#include "zulcore.h"

namespace zul {

namespace {

constexpr size_t kMaxResponse = 1 << 20; // bytes: several thousand certificates
constexpr size_t kMaxShownSerial = 63;   // bytes

constexpr const char* kResponseStatus[] = {"successful",  "malformedRequest",           "internalError",
                                           "tryLater",    "INVALID OCSPResponseStatus", "sigRequired",
                                           "unauthorized"};
constexpr const char* kCertStatus[] = {"good", "revoked", "unknown"};
constexpr uint32_t kRevoked = 1;

template<class... Texts>
void add(char report[kOcspReport], Texts... texts) {
    (str_append(report, texts, static_cast<int>(kOcspReport)), ...);
}

const asn_Node* sequence_or_null(const asn_Node* node) {
    return asn_is(node, kAsnConstructed, kAsnSequence) ? node : nullptr;
}

bool is_context(const asn_Node* node) {
    constexpr uint32_t kClassBits = 0xC0;
    return node != nullptr && (node->cls & kClassBits) == kAsnContext;
}

// BasicResponse holds a response twice: as it stands, for the signature, and as DER, for reading.
struct BasicResponse {
    AsnList asItStands, der;

    [[nodiscard]] int parse(const SecretBuffer& content) {
        ByteStream stream(content.data(), content.size());
        asItStands = asn_Parse(stream, false, true);
        if (stream.at_end())
            der = asn_ToDer(asn_CopyList(asItStands.head()));
        return sequence_or_null(der.head()) != nullptr
                   ? 0
                   : err_fail(INVALID_DATA_ERROR, "Not a valid BasicOCSPResponse");
    }

    // verify ignores certificates that follow the signature.
    [[nodiscard]] int verify(const char* issuerCert, const char* name) const {
        AsnList issuer;
        if (const int error = x509_read_certificate(issuerCert, issuer))
            return error;
        AsnChildren parts(asItStands.head());
        AsnList toBeSigned = asn_CopyElement(parts.take());
        AsnList algorithm = asn_CopyElement(parts.take());
        AsnList signature = asn_CopyElement(parts.take());
        const AsnList signedObject =
            asn_NewSequence(asn_LinkList(std::move(toBeSigned), std::move(algorithm), std::move(signature)));
        const int result =
            verify_object(certificate_fields(issuer.head()).subjectPublicKeyInfo, signedObject.head(), name);
        return result == -1 ? SIGNATURE_ERROR : result;
    }
};

// find_basic_response gives the content of a successful response.
[[nodiscard]] int find_basic_response(AsnChildren& fields, SecretBuffer& content) {
    AsnChildren responseBytes(AsnChildren(fields.take_if(kAsnExplicit, 0)).take_sequence());
    if (!asn_OidIs(responseBytes.take_oid(), "ocspBasic"))
        return err_fail(NOT_SUPPORTED_ERROR, "Require responseType to be ocspBasic");
    if (!asn_GetOctets(responseBytes.take(), content))
        return err_fail(INVALID_DATA_ERROR, "Cannot find response data");
    return 0;
}

[[nodiscard]] int add_produced_at(char report[kOcspReport], AsnChildren& responseData) {
    while (is_context(responseData.peek())) // version and responderID
        responseData.take();
    char time[kAsnTimeText];
    if (*asn_time_text(responseData.take_if(kAsnUniversal, kAsnGeneralizedTime), time) == '\0')
        return err_fail(BAD_FORMAT_ERROR, "Cannot find time producedAt");
    add(report, "\n Produced at ", time);
    return 0;
}

// add_single adds what a SingleResponse says of its certificate.
[[nodiscard]] int add_single(char report[kOcspReport], const asn_Node* single) {
    AsnChildren fields(sequence_or_null(single));
    const asn_Node* certId = fields.take_sequence();
    const asn_Node* status = certId == nullptr ? nullptr : fields.take();
    if (!is_context(status))
        return err_fail(INVALID_DATA_ERROR, "Invalid SingleResponse");
    add(report, "\n CertStatus=", status->tag < std::size(kCertStatus) ? kCertStatus[status->tag] : "ERROR!");

    if (status->tag == kRevoked) {
        char time[kAsnTimeText];
        if (*asn_time_text(AsnChildren(status).take_if(kAsnUniversal, kAsnGeneralizedTime), time) == '\0')
            return err_fail(BAD_FORMAT_ERROR, "Cannot find revocationTime");
        add(report, " at ", time);
    }

    AsnChildren id(certId);
    while (!id.at_end() && !id.is(kAsnUniversal, kAsnInteger))
        id.take();
    if (const asn_Node* serial = id.take(); serial != nullptr && serial->data != nullptr) {
        char hex[2 * kMaxShownSerial + 1];
        hex_encode(hex, sizeof hex, serial->data, serial->length);
        add(report, "\n SerialNumber=", hex);
    }
    return 0;
}

[[nodiscard]] int add_basic_response(char report[kOcspReport], const BasicResponse& basic,
                                     const char* responseFile, const char* issuerCert) {
    AsnChildren responseData(AsnChildren(basic.der.head()).take_sequence());
    if (const int error = add_produced_at(report, responseData))
        return error;
    if (!is_missing(issuerCert))
        if (const int error = basic.verify(issuerCert, responseFile))
            return err_fail(error, "Signature is invalid");
    const asn_Node* responses = responseData.take_sequence();
    if (responses == nullptr)
        return err_fail(INVALID_DATA_ERROR, "Cannot find responses");
    for (AsnChildren singles(responses); !singles.at_end();)
        if (const int error = add_single(report, singles.take()))
            return error;
    return 0;
}

// read_response gives the error texts that the readers of certificates give.
[[nodiscard]] int read_response(const char* responseFile, AsnList& object) {
    const int error = asn_read_input(responseFile, object, kMaxResponse);
    if (error == INVALID_DATA_ERROR)
        err_add_text("Invalid ASN.1 data");
    else if (error == OPEN_ERROR && !platform::file_is_regular(responseFile)) // one that is may be too large
        err_set_text("Unable to open file '%s'", shown_name(responseFile));
    return error;
}

[[nodiscard]] int make_report(char report[kOcspReport], const char* responseFile, const char* issuerCert) {
    AsnList object;
    if (const int error = read_response(responseFile, object))
        return error;
    AsnChildren fields(object.head());
    const asn_Node* status = fields.take_if(kAsnUniversal, kAsnEnumerated);
    if (status == nullptr)
        return err_fail(INVALID_DATA_ERROR, "Not a valid OCSPResponse object");
    const int64_t number = asn_GetInt(status);
    if (number < 0 || number >= static_cast<int64_t>(std::size(kResponseStatus)))
        return err_fail(OUT_OF_RANGE_ERROR, "OCSPResponseStatus out of range");
    if (number != 0) {
        add(report, kResponseStatus[number], ".");
        return 0;
    }
    add(report, "Successful response:");
    SecretBuffer content;
    BasicResponse basic;
    int error = find_basic_response(fields, content);
    if (error == 0)
        error = basic.parse(content);
    return error != 0 ? error : add_basic_response(report, basic, responseFile, issuerCert);
}

} // namespace

int ocsp_report(char report[kOcspReport], const char* responseFile, const char* issuerCert) {
    *report = '\0';
    const int error = make_report(report, responseFile, issuerCert);
    if (error != 0)
        *report = '\0';
    return error;
}

} // namespace zul
