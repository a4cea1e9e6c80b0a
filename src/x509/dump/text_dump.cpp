#include "x509/dump/text_dump.h"

#include "frame/err.h"
#include "frame/text.h"
#include "x509/dump/dump_layouts.h"
#include "x509/fields/certificate.h"
#include "x509/input/der_source.h"
#include "x509/input/x509_input.h"
#include "zulcore.h"

namespace zul {
namespace {

[[nodiscard]] int dump_source(DumpOutput& out, DerSource& source) {
    CrlReader crl; // a CRL may be longer than memory
    int error = crl.open(source);
    if (error == 0)
        return dump_crl(out, crl);
    if (error != BAD_FORMAT_ERROR)
        return error;
    AsnList object;
    error = x509_read_object(source, object);
    if (error != 0)
        return error;
    if (x509_is_certificate(object.head()))
        return dump_certificate(out, object.head());
    if (x509_is_request(object.head()))
        return dump_request(out, object.head());
    return err_fail(BAD_FORMAT_ERROR, "Not a certificate, request or CRL");
}

[[nodiscard]] int dump(DumpOutput& out, const char* fileOrText) {
    DerSource source;
    const int error = source.open(fileOrText);
    return error != 0 ? error : source.read_result(dump_source(out, source));
}

} // namespace

int text_dump(const char* fileOut, const char* fileOrText) {
    DumpOutput out(fileOut, fileOrText);
    if (!out.is_open())
        return err_fail(CREATE_ERROR, "Cannot create file '%s'", shown_name(fileOut));
    const int error = dump(out, fileOrText);
    if (!out.finish() && error == 0)
        return err_fail(WRITE_ERROR, "Cannot write file '%s'", shown_name(fileOut));
    return error;
}

} // namespace zul
