#include "pfx/pfx_read.h"

#include <algorithm>
#include <climits>

#include "encode/output_file.h"
#include "frame/err.h"
#include "frame/text.h"
#include "pfx/pfx_mac.h"
#include "pfx/pfx_reader.h"
#include "zulcore.h"

namespace zul {

int pfx_verify(const char* pfxFile, const char* password) {
    if (!pfx_password_fits(password))
        return BAD_LENGTH_ERROR;
    PfxReader pfx;
    if (const int error = pfx.open(pfxFile))
        return error;
    if (pfx.version() != kPfxVersion)
        return err_fail(NOT_SUPPORTED_ERROR, "Invalid PFX version - expecting version 3");
    if (pfx.mac_data() == nullptr)
        return err_fail(NO_DATA_ERROR, "No MAC found to verify");
    SecretBuffer safe;
    if (const int error = pfx.read_safe(safe))
        return error;
    return pfx_check_mac(pfx.mac_data(), safe, password);
}

int pfx_extract(const char* path, const char* pfxFile, PfxContent what) {
    const bool isKey = what == PfxContent::key;
    PfxReader pfx;
    if (const int error = pfx.open(pfxFile))
        return error;
    if (pfx.version() != kPfxVersion)
        return err_fail(
            NOT_SUPPORTED_ERROR,
            "Only PKCS-12 version 3 is supported. This PFX/PKCS-12 file appears to be version %ld.",
            static_cast<long>(std::min<int64_t>(pfx.version(), LONG_MAX)));
    SecretBuffer safe, content;
    int error = pfx.read_safe(safe);
    if (error == 0)
        error = isKey ? pfx_find_key(safe, content) : pfx_find_certificate(safe, content);
    if (error == 0)
        error =
            output_write(path, content, nullptr, 0, {.secret = isKey, .replaces = isKey, .input = pfxFile});
    return error == CREATE_ERROR ? err_fail(error, "Cannot create %s", shown_name(path)) : error;
}

} // namespace zul
