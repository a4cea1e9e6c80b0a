#include "cms/content/content_output.h"

#include <algorithm>
#include <climits>
#include <cstring>

#include "cms/content/octet_content.h"
#include "frame/err.h"
#include "frame/file_writer.h"
#include "frame/text.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr size_t kPart = size_t{64} * 1024;

// give_length sets the length of a result, which is an int.
[[nodiscard]] int give_length(size_t size, int* length) {
    if (size > INT_MAX)
        return err_fail(MSG_TOO_LONG_ERROR, "Content is too long");
    *length = static_cast<int>(size);
    return 0;
}

// Its length was known before, so what is missing could not be read.
[[nodiscard]] int cannot_read() {
    return err_fail(READ_ERROR, "Cannot read content");
}

} // namespace

int content_to_file(OctetContent& content, const char* path, const char* input, int* length) {
    if (const int error = give_length(content.size(), length))
        return error;
    if (!content.rewind())
        return cannot_read();
    FileWriter out(path, {.keepsPart = true, .input = input});
    if (!out.is_open())
        return err_fail(CREATE_ERROR, "Cannot create output file");
    SecretBuffer part(kPart);
    size_t done = 0;
    bool written = true;
    while (const size_t got = written ? content.read(part.data(), kPart) : 0) {
        done += got;
        written = out.write(part.data(), got);
    }
    if (written && done != content.size())
        return cannot_read();
    return written && out.finish() ? 0 : err_fail(WRITE_ERROR, "Cannot write output file");
}

int bytes_to_file(const SecretBuffer& bytes, const char* path) {
    FileWriter out(path);
    if (!out.is_open())
        return err_fail(CREATE_ERROR, "Cannot create file '%s'", shown_name(path));
    if (out.write(bytes.data(), bytes.size()) && out.finish())
        return 0;
    return err_fail(out.close_failed() ? IO_ERROR : WRITE_ERROR, "Cannot write file '%s'", shown_name(path));
}

int content_to_room(OctetContent& content, char* out, int room, int* length) {
    const bool isQuery = out == nullptr || room <= 0;
    const size_t size = isQuery ? content.size() : std::min(content.size(), static_cast<size_t>(room));
    if (const int error = give_length(content.size(), length); error != 0 || isQuery)
        return error;
    if (!content.rewind() || content.read(out, size) != size) {
        wipe_bytes(out, size);
        return cannot_read();
    }
    out[size] = '\0';
    return give_length(size, length);
}

int bytes_to_room(const SecretBuffer& bytes, char* out, int room, int* length) {
    const bool isQuery = out == nullptr || room <= 0;
    const size_t size = isQuery ? bytes.size() : std::min(bytes.size(), static_cast<size_t>(room));
    if (const int error = give_length(bytes.size(), length); error != 0 || isQuery)
        return error;
    if (size > 0)
        memcpy(out, bytes.data(), size);
    out[size] = '\0';
    return give_length(size, length);
}

} // namespace zul
