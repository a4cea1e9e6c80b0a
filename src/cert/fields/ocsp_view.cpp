#include "cert/fields/ocsp_view.h"

#include "cert/fields/cert_oids.h"
#include "frame/err.h"
#include "zulcore.h"

namespace zul {

namespace {

constexpr std::string_view kOidOcspBasic = "\x2B\x06\x01\x05\x05\x07\x30\x01\x01"sv;

[[nodiscard]] int bad_response(const char* field) {
    return err_fail(BAD_FORMAT_ERROR, "Invalid OCSP response: %s", field);
}

bool take_time(DerReader& reader, DerElement& element, int64_t& seconds) {
    return reader.next_is(kDerGeneralizedTime) && reader.take_any(element) && der_time(element, seconds);
}

// take_next_update takes an explicit [0] around a time, if it is there.
bool take_next_update(DerReader& reader, OcspSingleView& single) {
    DerView content;
    if (!reader.take_optional(der_explicit(0), content, single.hasNextUpdate) || !single.hasNextUpdate)
        return !reader.next_is(der_explicit(0));
    DerReader time(content);
    return take_time(time, single.nextUpdateTime, single.nextUpdate) && time.at_end();
}

// take_extensions takes an explicit [1] around extensions, if it is there.
bool take_extensions(DerReader& reader, DerView& extensions) {
    DerView content;
    bool found;
    extensions = {};
    return reader.take_optional(der_explicit(1), content, found) &&
           (!found || (der_single(content, kDerSequence, extensions) && extensions_are_valid(extensions)));
}

bool read_cert_id(DerView content, CertId& id) {
    DerReader fields(content);
    return algorithm_view_read(fields, id.hashAlgorithm) && fields.take(kDerOctetString, id.issuerNameHash) &&
           fields.take(kDerOctetString, id.issuerKeyHash) && fields.take(kDerInteger, id.serialNumber) &&
           der_is_integer(id.serialNumber) && fields.at_end();
}

bool read_revoked(DerView content, OcspSingleView& single) {
    DerReader fields(content);
    DerView outer, code;
    bool found;
    return take_time(fields, single.revocationTimeElement, single.revocationTime) &&
           fields.take_optional(der_explicit(0), outer, found) &&
           (!found || (der_single(outer, kDerEnumerated, code) && der_small_integer(code, single.reason) &&
                       single.reason <= 10)) &&
           fields.at_end();
}

bool take_status(DerReader& fields, OcspSingleView& single) {
    DerElement element;
    if (!fields.take_any(element))
        return false;
    if (element.is(der_context(0)) || element.is(der_context(2))) {
        single.status = element.is(der_context(0)) ? OcspCertStatus::good : OcspCertStatus::unknown;
        return element.content.empty();
    }
    single.status = OcspCertStatus::revoked;
    return element.is(der_explicit(1)) && read_revoked(element.content, single);
}

bool take_responder(DerReader& fields, OcspResponseView& response) {
    DerElement element;
    DerView name;
    if (!fields.take_any(element))
        return false;
    if (element.is(der_explicit(1)) && der_single(element.content, kDerSequence, name)) {
        response.responderName = element.content;
        return true;
    }
    return element.is(der_explicit(2)) &&
           der_single(element.content, kDerOctetString, response.responderKeyHash);
}

[[nodiscard]] int read_data(DerView content, OcspResponseView& response) {
    DerReader fields(content);
    DerView outer, version;
    bool found;
    int number = 0;
    if (!fields.take_optional(der_explicit(0), outer, found) ||
        (found &&
         (!der_single(outer, kDerInteger, version) || !der_small_integer(version, number) || number != 0)))
        return bad_response("version");
    if (!take_responder(fields, response))
        return bad_response("responderID");
    if (!take_time(fields, response.producedAtTime, response.producedAt))
        return bad_response("producedAt");
    if (!fields.take(kDerSequence, response.responses))
        return bad_response("responses");
    return take_extensions(fields, response.extensions) && fields.at_end()
               ? 0
               : bad_response("responseExtensions");
}

[[nodiscard]] int read_basic(DerView encoding, OcspResponseView& response) {
    DerView content, bits, outer;
    DerElement data;
    bool found;
    unsigned unused;
    if (!der_single(encoding, kDerSequence, content))
        return bad_response("BasicOCSPResponse");
    response.encoding = encoding;
    DerReader fields(content);
    if (!fields.next_is(kDerSequence) || !fields.take_any(data))
        return bad_response("tbsResponseData");
    response.toBeSigned = data.encoding;
    if (!algorithm_view_read(fields, response.signatureAlgorithm) || !fields.take(kDerBitString, bits) ||
        !der_bits(bits, response.signature, unused) || unused != 0)
        return bad_response("signature");
    if (!fields.take_optional(der_explicit(0), outer, found) || !fields.at_end() ||
        (found && !der_single(outer, kDerSequence, response.certificates)))
        return bad_response("certs");
    return read_data(data.content, response);
}

} // namespace

bool OcspSingleReader::next(OcspSingleView& single) {
    DerReader ahead = reader_;
    DerView content, id;
    if (ahead.at_end() || !ahead.take(kDerSequence, content))
        return false;
    single = {};
    DerReader fields(content);
    if (!fields.take(kDerSequence, id) || !read_cert_id(id, single.id) || !take_status(fields, single) ||
        !take_time(fields, single.thisUpdateTime, single.thisUpdate) || !take_next_update(fields, single) ||
        !take_extensions(fields, single.extensions) || !fields.at_end())
        return false;
    reader_ = ahead;
    return true;
}

int ocsp_response_view_read(DerView encoding, OcspResponseView& response) {
    DerView content, status, outer, bytes, type, basic;
    bool found;
    if (!der_single(encoding, kDerSequence, content))
        return bad_response("not a SEQUENCE in DER");
    DerReader fields(content);
    if (!fields.take(kDerEnumerated, status) || !der_small_integer(status, response.responseStatus) ||
        !fields.take_optional(der_explicit(0), outer, found) || !fields.at_end())
        return bad_response("responseStatus");
    if (response.responseStatus != 0)
        return 0;
    if (!found || !der_single(outer, kDerSequence, bytes))
        return bad_response("responseBytes");
    DerReader parts(bytes);
    if (!parts.take(kDerOid, type) || !parts.take(kDerOctetString, basic) || !parts.at_end())
        return bad_response("responseBytes");
    if (type.text() != kOidOcspBasic)
        return err_fail(NOT_SUPPORTED_ERROR, "OCSP response is not of type ocspBasic");
    return read_basic(basic, response);
}

} // namespace zul
