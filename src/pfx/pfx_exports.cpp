#include <algorithm>
#include <climits>

#include "encode/output_file.h"
#include "frame/call_frame.h"
#include "frame/text.h"
#include "pfx/pfx_mac.h"
#include "pfx/pfx_make.h"
#include "pfx/pfx_reader.h"
#include "zulcore.h"

using namespace zul;

namespace {

const char* or_empty(const char* text) {
    return text == nullptr ? "" : text;
}

int fail(int code, const char* text) {
    err_add_text("%s", text);
    return code;
}

int verify(const char* pfxFile, const char* password) {
    if (!pfx_password_fits(password))
        return BAD_LENGTH_ERROR;
    PfxReader pfx;
    if (const int error = pfx.open(pfxFile))
        return error;
    if (pfx.version() != kPfxVersion)
        return fail(NOT_SUPPORTED_ERROR, "Invalid PFX version - expecting version 3");
    if (pfx.mac_data() == nullptr)
        return fail(NO_DATA_ERROR, "No MAC found to verify");
    SecretBuffer safe;
    if (const int error = pfx.read_safe(safe))
        return error;
    return pfx_check_mac(pfx.mac_data(), safe, password);
}

int extract(const char* out, const char* pfxFile, int (*find)(const SecretBuffer&, SecretBuffer&),
            bool secret) {
    PfxReader pfx;
    if (const int error = pfx.open(pfxFile))
        return error;
    if (pfx.version() != kPfxVersion) {
        err_add_text("Only PKCS-12 version 3 is supported. This PFX/PKCS-12 file appears to be version %ld.",
                     static_cast<long>(std::min<int64_t>(pfx.version(), LONG_MAX)));
        return NOT_SUPPORTED_ERROR;
    }
    SecretBuffer safe, content;
    if (const int error = pfx.read_safe(safe))
        return error;
    if (const int error = find(safe, content))
        return error;
    const int error =
        output_write(out, content, nullptr, 0, {.secret = secret, .replaces = secret, .input = pfxFile});
    if (error == CREATE_ERROR)
        err_add_text("Cannot create %s", shown_name(out));
    return error;
}

} // namespace

int PFX_MakeFile(const char* szFileOut, const char* szCertFile, const char* szKeyFile, const char* szPassword,
                 const char* szFriendlyName, int nOptions) {
    CallFrame frame(1);
    if (is_missing(szFileOut) || is_missing(szCertFile))
        return frame.status(BAD_PARAM_ERROR);
    return frame.status(pfx_make({szFileOut, szCertFile, or_empty(szKeyFile), or_empty(szPassword),
                                  or_empty(szFriendlyName), nOptions}));
}

int PFX_VerifySig(const char* szPfxFile, const char* szPassword, int /*nOptions*/) {
    CallFrame frame;
    if (is_missing(szPfxFile))
        return frame.status(BAD_PARAM_ERROR);
    return frame.status(verify(szPfxFile, or_empty(szPassword)));
}

int X509_GetCertFromPFX(const char* szFileOut, const char* szPfxFile, int /*nOptions*/) {
    CallFrame frame;
    if (is_missing(szFileOut) || is_missing(szPfxFile))
        return frame.status(BAD_PARAM_ERROR);
    return frame.status(extract(szFileOut, szPfxFile, pfx_find_certificate, false));
}

int RSA_GetPrivateKeyFromPFX(const char* szFileOut, const char* szPfxFile, int /*nOptions*/) {
    CallFrame frame(1);
    if (is_missing(szFileOut) || is_missing(szPfxFile))
        return frame.status(BAD_PARAM_ERROR);
    return frame.status(extract(szFileOut, szPfxFile, pfx_find_key, true));
}
