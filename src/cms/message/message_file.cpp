#include "cms/message/message_file.h"

#include "asn1/asn_build.h"
#include "asn1/asn_encode.h"
#include "asn1/asn_file.h"
#include "encode/pem.h"
#include "frame/err.h"
#include "frame/file_writer.h"
#include "frame/text.h"
#include "zulcore.h"

namespace zul {
int message_write(const char* path, const asn_Node* message, int options, const char* label,
                  const WriteRules& rules) {
    // Checked before the file is opened, so that an existing file is not lost to a message that cannot be
    // written.
    if (message == nullptr || asn_Length(message) == 0)
        return INVALID_DATA_ERROR;
    FileWriter out(path, rules);
    if (!out.is_open())
        return CREATE_ERROR;
    const bool asBase64 = (options & ZUL_CMS_FORMAT_BASE64) != 0;
    if (asBase64) {
        PemWriter writer(out, label, kPemLineLen);
        asn_WritePem(message, writer);
        writer.finish();
    } else {
        static_cast<void>(asn_WriteFile(message, out)); // finish tells of a failure
    }
    if (out.finish())
        return 0;
    err_add_text("Cannot write file %s", shown_name(path));
    return asBase64 ? err_fail(WRITE_ERROR, "Error converting to base64") : int{WRITE_ERROR};
}

} // namespace zul
