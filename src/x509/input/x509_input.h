#pragma once
#include "asn1/asn_node.h"
#include "asn1/asn_scope.h"

// Readers of certificate arguments. Such an argument is base64 of more than 256 characters that begins with
// "M", text with a PEM block, or the name of a file of DER, PEM or base64.
namespace zul {

class ByteStream;
class DerSource;

constexpr size_t kMaxX509Object = 1 << 23; // bytes of one object that is read whole
constexpr int kX509NameLevel = 2;          // of the Names in certificates and requests: they are packed

// x509_read_object gives 0 or a positive code with a text: OPEN_ERROR, READ_ERROR, INVALID_DATA_ERROR.
[[nodiscard]] int x509_read_object(const char* fileOrText, AsnList& object);
[[nodiscard]] int x509_read_object(DerSource& source, AsnList& object);
// x509_object_from_text takes text alone; false, without a text, if it holds no object.
bool x509_object_from_text(const char* text, AsnList& object);

// x509_parse_source is x509_read_object without a text.
bool x509_parse_source(DerSource& source, AsnList& object);

// x509_read_certificate and x509_read_request take only an object of that kind. Another one is
// BAD_FORMAT_ERROR.
[[nodiscard]] int x509_read_certificate(const char* fileOrText, AsnList& certificate);
[[nodiscard]] int x509_read_certificate(DerSource& source, AsnList& certificate);
[[nodiscard]] int x509_read_request(const char* fileOrText, AsnList& request);

// x509_read_signature reads the algorithm and the signature, which may be in segments, and leaves the object.
// False for anything else, and for more bytes than any signature has.
[[nodiscard]] bool x509_read_signature(ByteStream& stream, const AsnScope& object, AsnList& algorithm,
                                       AsnList& value);

} // namespace zul
