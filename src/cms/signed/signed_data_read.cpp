#include "cms/signed/signed_data_read.h"

#include "asn1/asn_element.h"
#include "asn1/asn_encode.h"
#include "cms/content/content_output.h"
#include "cms/signed/signed_data.h"
#include "encode/output_file.h"
#include "frame/err.h"
#include "frame/text.h"
#include "x509/input/certificate_bundle.h"
#include "zulcore.h"

namespace zul {
namespace {

[[nodiscard]] int open_content(SignedData& message, const char* fileOrText) {
    int error = message.open(fileOrText);
    if (error == 0)
        error = message.require_data();
    if (error == 0 && !message.has_content())
        error = err_fail(NO_DATA_ERROR, "No content found in SignedData object");
    return error;
}

} // namespace

int signed_content_to_file(const char* path, const char* fileOrText, int* length) {
    SignedData message;
    const int error = open_content(message, fileOrText);
    return error != 0 ? error : content_to_file(message.content(), path, fileOrText, length);
}

int signed_content_to_room(char* out, int room, const char* fileOrText, int* length) {
    SignedData message;
    const int error = open_content(message, fileOrText);
    return error != 0 ? error : content_to_room(message.content(), out, room, length);
}

int carried_certificate(const char* path, const char* fileOrText, int index, int* result) {
    constexpr const char* kNoMessage = "Not a valid SignedData file";
    DerSource source;
    if (const int error = source.open(fileOrText))
        return error == INVALID_DATA_ERROR ? err_fail(BAD_FORMAT_ERROR, "%s", kNoMessage) : error;
    CertificateBundle bundle;
    if (bundle.open(source) != 0)
        return source.read_result(err_fail(BAD_FORMAT_ERROR, "%s", kNoMessage));
    *result = index < 1 ? bundle.count() : 0;
    if (index < 1 || index > bundle.count())
        return 0;
    const SecretBuffer der = asn_Encode(asn_ToDer(bundle.certificate(index - 1)));
    if (der.empty())
        return source.read_result(err_fail(BAD_FORMAT_ERROR, "Certificate [%d] is invalid", index));
    *result = static_cast<int>(der.size());
    if (is_missing(path))
        return 0;
    const int error = output_write(path, der, nullptr, 0, {.keepsPart = true});
    return error == CREATE_ERROR ? err_fail(error, "Cannot create %s", shown_name(path)) : error;
}

} // namespace zul
