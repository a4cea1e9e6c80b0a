#include "asn1/asn_element.h"
#include "asn1/asn_encode.h"
#include "cms/content/content_output.h"
#include "cms/signed/signed_data.h"
#include "encode/output_file.h"
#include "frame/call_frame.h"
#include "frame/text.h"
#include "x509/input/certificate_bundle.h"
#include "zulcore.h"

using namespace zul;

namespace {

bool is_given(const char* text) {
    return text != nullptr && *text != '\0';
}

int fail(int code, const char* text) {
    err_add_text("%s", text);
    return -code;
}

// open_content gives 0 or a negated code.
int open_content(SignedData& message, const char* fileOrText) {
    int error = message.open(fileOrText);
    if (error == 0)
        error = message.require_data();
    if (error != 0)
        return -error;
    return message.has_content() ? 0 : fail(NO_DATA_ERROR, "No content found in SignedData object");
}

int read_to_file(const char* fileOut, const char* fileOrText) {
    SignedData message;
    const int error = open_content(message, fileOrText);
    return error != 0 ? error : content_to_file(message.content(), fileOut, fileOrText);
}

int read_to_room(char* out, int room, const char* fileOrText) {
    SignedData message;
    const int error = open_content(message, fileOrText);
    return error != 0 ? error : content_to_room(message.content(), out, room);
}

// read_certificate gives the number of certificates for an index below 1; else 0, and the DER of that one,
// empty past the last; or a negated code.
int read_certificate(const char* fileOrText, int index, SecretBuffer& der) {
    constexpr const char* kNoMessage = "Not a valid SignedData file";
    DerSource source;
    if (const int error = source.open(fileOrText))
        return error == OPEN_ERROR ? -error : fail(BAD_FORMAT_ERROR, kNoMessage);
    CertificateBundle bundle;
    if (bundle.open(source) != 0)
        return fail(BAD_FORMAT_ERROR, kNoMessage);
    if (index < 1)
        return bundle.count();
    if (index > bundle.count())
        return 0;
    der = asn_Encode(asn_ToDer(bundle.certificate(index - 1)));
    if (!der.empty())
        return 0;
    err_add_text("Certificate [%d] is invalid", index);
    return -BAD_FORMAT_ERROR;
}

int write_certificate(const char* path, const SecretBuffer& der) {
    const int error = output_write(path, der, nullptr, 0, {.keepsPart = true});
    return -(error == CREATE_ERROR ? err_fail(error, "Cannot create %s", shown_name(path)) : error);
}

} // namespace

int CMS_ReadSigData(const char* szFileOut, const char* szFileIn, int /*nOptions*/) {
    CallFrame frame(1);
    if (!is_given(szFileOut) || !is_given(szFileIn))
        return frame.length(-BAD_PARAM_ERROR);
    return frame.length(read_to_file(szFileOut, szFileIn));
}

int CMS_ReadSigDataToString(char* szDataOut, int nDataOutLen, const char* szFileIn, int /*nOptions*/) {
    CallFrame frame(1);
    if (!is_given(szFileIn))
        return frame.length(-BAD_PARAM_ERROR);
    return frame.length(read_to_room(szDataOut, nDataOutLen, szFileIn));
}

int X509_GetCertFromP7Chain(const char* szNewCertFile, const char* szP7cFile, int nIndex, int /*nOptions*/) {
    CallFrame frame(1);
    if (!is_given(szP7cFile))
        return frame.length(-BAD_PARAM_ERROR);
    SecretBuffer der;
    int result = read_certificate(szP7cFile, nIndex, der);
    if (result == 0 && !der.empty() && is_given(szNewCertFile))
        result = write_certificate(szNewCertFile, der);
    return frame.length(result == 0 ? static_cast<int>(der.size()) : result);
}
