#include "asn1/asn_file.h"

#include "asn1/asn_encode.h"
#include "encode/output_file.h"
#include "encode/pem.h"
#include "zulcore.h"

namespace zul {

int asn_write_file(const char* path, const asn_Node* list, const char* label, int lineLen,
                   const WriteRules& rules) {
    if (!asn_HasEncoding(list)) // checked first, so that an existing file is not lost
        return INVALID_DATA_ERROR;
    FileWriter out(path, rules);
    if (!out.is_open())
        return CREATE_ERROR;
    if (label == nullptr) {
        static_cast<void>(asn_WriteFile(list, out)); // output_finish tells of a failure
    } else {
        PemWriter writer(out, label, lineLen);
        asn_WritePem(list, writer);
        writer.finish();
    }
    return output_finish(out, path);
}

} // namespace zul
