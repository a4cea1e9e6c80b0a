#include "pfx/pfx_output.h"

#include "encode/pem.h"
#include "frame/err.h"
#include "frame/file_stream.h"
#include "frame/text.h"
#include "zulcore.h"

namespace zul {

static constexpr int kLineLen = 64;

int pfx_write(const char* path, const SecretBuffer& content, const char* label, platform::OpenMode mode,
              const char* input) {
    if (is_same_file(input, path))
        return CREATE_ERROR;
    FileWriter out(path, mode);
    if (!out.is_open())
        return CREATE_ERROR;
    if (label != nullptr)
        pem_write(out, content.data(), content.size(), label, kLineLen);
    else
        out.write(content.data(), content.size());
    if (out.finish())
        return 0;
    err_add_text("Cannot write file '%s'", shown_name(path));
    return WRITE_ERROR;
}

} // namespace zul
