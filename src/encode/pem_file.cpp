#include "encode/base64.h"
#include "encode/output_file.h"
#include "encode/pem.h"
#include "encode/whole_file.h"
#include "frame/err.h"
#include "frame/text.h"
#include "zulcore.h"

namespace zul {
namespace {

// read_input has one code for an input that cannot be read, whether or not it can be opened.
[[nodiscard]] int read_input(const char* path, SecretBuffer& content) {
    return read_whole_file(path, content) == 0 ? 0 : OPEN_ERROR;
}

} // namespace

int pem_file_from_file(const char* outPath, const char* inPath, const char* label, int lineLen) {
    SecretBuffer content;
    if (int error = read_input(inPath, content))
        return error;
    FileWriter out(outPath);
    if (!out.is_open())
        return err_fail(CREATE_ERROR, "Cannot create file '%s'", shown_name(outPath));
    pem_write(out, content.data(), content.size(), label, lineLen);
    return output_finish(out, outPath);
}

int pem_file_to_file(const char* outPath, const char* inPath) {
    SecretBuffer content;
    if (int error = read_input(inPath, content))
        return error;
    size_t bodyLen = 0;
    const char* body = pem_find_body(content.text(), content.size(), &bodyLen);
    if (bodyLen == 0)
        return err_fail(BAD_FORMAT_ERROR, "No armoured data in file '%s'", shown_name(inPath));
    // Readers of these files count on this size, which leaves zeros after the data.
    SecretBuffer decoded((bodyLen + 3) / 4 * 3 + 1);
    b64_decode(decoded.data(), decoded.size(), body, bodyLen);
    FileWriter out(outPath);
    if (!out.is_open())
        return err_fail(CREATE_ERROR, "Cannot create file '%s'", shown_name(outPath));
    out.write(decoded.data(), decoded.size());
    return output_finish(out, outPath);
}

} // namespace zul
