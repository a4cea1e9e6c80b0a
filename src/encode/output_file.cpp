#include "encode/output_file.h"

#include "encode/pem.h"
#include "frame/err.h"
#include "frame/text.h"
#include "zulcore.h"

namespace zul {

int output_write(const char* path, const SecretBuffer& bytes, const char* label, int lineLen,
                 const WriteRules& rules) {
    FileWriter out(path, rules);
    if (!out.is_open())
        return CREATE_ERROR;
    if (label != nullptr)
        pem_write(out, bytes.data(), bytes.size(), label, lineLen);
    else
        out.write(bytes.data(), bytes.size());
    return output_finish(out, path);
}

int output_finish(FileWriter& out, const char* path) {
    return out.finish() ? 0 : err_fail(WRITE_ERROR, "Cannot write file '%s'", shown_name(path));
}

} // namespace zul
