#include "asn1/asn_file.h"

#include "asn1/asn_encode.h"
#include "encode/pem.h"
#include "frame/err.h"
#include "frame/file_stream.h"
#include "frame/text.h"
#include "zulcore.h"

namespace zul {

int asn_write_file(const char* path, const asn_Node* list, const char* label, int lineLen,
                   platform::OpenMode mode) {
    // Encoded first, so that a file that exists is not lost to a list that cannot be written.
    const SecretBuffer der = asn_Encode(list);
    if (der.empty())
        return INVALID_DATA_ERROR;
    FileWriter out(path, mode);
    if (!out.is_open())
        return CREATE_ERROR;
    if (label != nullptr)
        pem_write(out, der.data(), der.size(), label, lineLen);
    else
        out.write(der.data(), der.size());
    if (out.finish())
        return 0;
    err_add_text("Cannot write file '%s'", shown_name(path));
    return WRITE_ERROR;
}

} // namespace zul
