// Up to the entries of a CRL, and behind them. Whatever could hide entries from a look-up is refused: an
// unknown field, a list of another type.
#include "x509/crl/crl_reader.h"

#include "asn1/asn_element.h"
#include "asn1/asn_encode.h"
#include "asn1/asn_header.h"
#include "asn1/asn_parse.h"
#include "asn1/byte_stream.h"
#include "frame/err.h"
#include "x509/input/x509_input.h"
#include "zulcore.h"

namespace zul {

namespace {

constexpr uint8_t kExtensionsOctet = kAsnExplicit | 0;
constexpr size_t kMaxName = 1 << 20; // bytes

} // namespace

const char* CrlReader::time_of(uint8_t octet, uint8_t* content, size_t length, char out[kAsnTimeText]) {
    asn_Node node = {};
    node.tag = octet;
    node.length = static_cast<uint32_t>(length);
    node.data = length == 0 ? nullptr : content;
    return asn_time_text(&node, out);
}

int CrlReader::read_header(size_t limit, Element& element) {
    AsnHeader header;
    element.start = stream_->offset();
    if (asn_read_header(*stream_, header) != 1)
        return BAD_FORMAT_ERROR;
    if (header.ndef != 0)
        return kIndefinite;
    element.octet = header.hdr[0];
    element.content = stream_->offset();
    element.end = element.content + header.length;
    return element.content <= limit && header.length <= limit - element.content ? 0 : BAD_FORMAT_ERROR;
}

int CrlReader::read_header_of(uint8_t octet, size_t limit, Element& element) {
    const int error = read_header(limit, element);
    return error == 0 && element.octet != octet ? BAD_FORMAT_ERROR : error;
}

// parse_small parses an element of which the header has been read.
int CrlReader::parse_small(const Element& element, AsnList& list) {
    if (element.end - element.start > kMaxName || !stream_->seek(element.start))
        return BAD_FORMAT_ERROR;
    list = asn_Parse(*stream_, false, true);
    return list && stream_->offset() == element.end ? 0 : BAD_FORMAT_ERROR;
}

// convert goes on with the DER form of the whole CRL, from its beginning.
bool CrlReader::convert() {
    if (converted_ || !stream_->seek(0) || stream_->remaining() > kMaxX509Object)
        return false;
    der_ = asn_Encode(asn_ToDer(asn_Parse(*stream_, false, true)));
    if (der_.empty())
        return false;
    converted_.emplace(der_.data(), der_.size());
    stream_ = &*converted_;
    return true;
}

int CrlReader::open(const char* fileOrText) {
    const int error = own_.open(fileOrText);
    return error != 0 ? error : open(own_);
}

int CrlReader::open(DerSource& source) {
    stream_ = &source.stream();
    if (!stream_->seek(0))
        return BAD_FORMAT_ERROR;
    buffer_ = SecretBuffer(kMaxEntry);
    int error = read_fields();
    if (error == kIndefinite)
        error = convert() ? read_fields() : BAD_FORMAT_ERROR;
    return error == kIndefinite ? BAD_FORMAT_ERROR : error;
}

int CrlReader::read_fields() {
    Element element;
    int error = read_header_of(kSequenceOctet, stream_->remaining(), element);
    if (error != 0)
        return error;
    objectEnd_ = element.end;
    error = read_header_of(kSequenceOctet, objectEnd_, element);
    if (error != 0)
        return error;
    toBeSignedEnd_ = element.end;

    error = read_header(toBeSignedEnd_, element);
    if (error == 0 && element.octet == kAsnInteger) {
        error = read_version(element);
        if (error == 0)
            error = read_header(toBeSignedEnd_, element);
    }
    if (error != 0)
        return error;
    if (element.octet != kSequenceOctet || !stream_->seek(element.end)) // the signature algorithm
        return BAD_FORMAT_ERROR;
    error = read_header_of(kSequenceOctet, toBeSignedEnd_, element);
    if (error == 0)
        error = parse_small(element, issuer_);
    if (error == 0)
        error = read_header(toBeSignedEnd_, element);
    return error != 0 ? error : read_times(element);
}

int CrlReader::read_version(const Element& element) {
    const int number = stream_->get();
    if (element.end != element.content + 1 || number < 0 || number > 0x7F)
        return BAD_FORMAT_ERROR;
    version_ = number + 1;
    return 0;
}

// read_times reads thisUpdate and, if it is there, nextUpdate.
int CrlReader::read_times(Element& element) {
    if (!is_time_octet(element.octet))
        return BAD_FORMAT_ERROR;
    for (char* out : {thisUpdate_, nextUpdate_}) {
        if (!is_time_octet(element.octet))
            break;
        if (const int error = read_time_field(element, out))
            return error;
        entriesEnd_ = stream_->offset();
        if (entriesEnd_ == toBeSignedEnd_)
            return 0;
        if (const int error = read_header(toBeSignedEnd_, element))
            return error;
    }
    return enter_list(element);
}

int CrlReader::read_time_field(const Element& element, char out[kAsnTimeText]) {
    uint8_t content[64];
    const size_t length = element.end - element.content;
    if (length > sizeof content || stream_->read(content, length) != length)
        return BAD_FORMAT_ERROR;
    if (*time_of(element.octet, content, length, out) != '\0')
        return 0;
    err_add_text("Invalid time in CRL");
    return INVALID_DATA_ERROR;
}

// enter_list stands before the first entry then, or at the end of the entries if there is no list.
int CrlReader::enter_list(const Element& element) {
    if (element.octet == kSequenceOctet) {
        entriesEnd_ = element.end;
        return 0;
    }
    return element.octet == kExtensionsOctet && stream_->seek(element.start) ? 0 : BAD_FORMAT_ERROR;
}

int CrlReader::finish() {
    int error = read_end();
    if (error != 0 && convert() && read_fields() == 0)
        error = read_end();
    return error == 0 ? 0 : INVALID_DATA_ERROR;
}

int CrlReader::read_end() {
    if (!stream_->seek(entriesEnd_))
        return BAD_FORMAT_ERROR;
    if (entriesEnd_ != toBeSignedEnd_) {
        Element element;
        int error = read_header_of(kExtensionsOctet, toBeSignedEnd_, element);
        if (error == 0)
            error = element.end == toBeSignedEnd_ ? read_extensions(element) : BAD_FORMAT_ERROR;
        if (error != 0)
            return error;
    }
    return x509_read_signature(*stream_, toBeSignedEnd_, objectEnd_, signatureAlgorithm_, signatureValue_)
               ? 0
               : BAD_FORMAT_ERROR;
}

int CrlReader::read_extensions(const Element& element) {
    Element list, first;
    const int error = read_header_of(kSequenceOctet, element.end, list);
    if (error != 0 || list.end != element.end)
        return error != 0 ? error : BAD_FORMAT_ERROR;
    return list.content == list.end ? 0 : read_header_of(kSequenceOctet, list.end, first);
}

} // namespace zul
