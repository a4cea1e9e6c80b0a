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

constexpr size_t kPart = 64 * 1024;

// A result is an int.
int too_long() {
    return -err_fail(MSG_TOO_LONG_ERROR, "Content is too long");
}

int changed() {
    return -err_fail(INVALID_DATA_ERROR, "Cannot read content");
}

} // namespace

int content_to_file(OctetContent& content, const char* path, const char* input) {
    constexpr const char* kNotWritten = "Cannot write output file";
    if (content.size() > INT_MAX)
        return too_long();
    if (!content.rewind())
        return changed();
    FileWriter out(path, {.keepsPart = true, .input = input});
    if (!out.is_open())
        return -err_fail(CREATE_ERROR, "Cannot create output file");
    SecretBuffer part(kPart);
    size_t done = 0;
    while (const size_t got = content.read(part.data(), kPart)) {
        done += got;
        if (!out.write(part.data(), got))
            return -err_fail(WRITE_ERROR, kNotWritten);
    }
    if (done != content.size())
        return changed();
    return out.finish() ? static_cast<int>(done) : -err_fail(WRITE_ERROR, kNotWritten);
}

int bytes_to_file(const SecretBuffer& bytes, const char* path) {
    FileWriter out(path);
    if (!out.is_open())
        return err_fail(CREATE_ERROR, "Cannot create file '%s'", shown_name(path));
    if (out.write(bytes.data(), bytes.size()) && out.finish())
        return 0;
    return err_fail(out.close_failed() ? IO_ERROR : WRITE_ERROR, "Cannot write file '%s'", shown_name(path));
}

int content_to_room(OctetContent& content, char* out, int room) {
    if (content.size() > INT_MAX)
        return too_long();
    if (out == nullptr || room <= 0)
        return static_cast<int>(content.size());
    const size_t length = std::min(content.size(), static_cast<size_t>(room));
    if (!content.rewind() || content.read(out, length) != length) {
        wipe_bytes(out, length);
        return changed();
    }
    out[length] = '\0';
    return static_cast<int>(length);
}

int bytes_to_room(const uint8_t* bytes, size_t size, char* out, int room) {
    if (size > INT_MAX)
        return too_long();
    if (out == nullptr || room <= 0)
        return static_cast<int>(size);
    const size_t length = std::min(size, static_cast<size_t>(room));
    if (length > 0)
        memcpy(out, bytes, length);
    out[length] = '\0';
    return static_cast<int>(length);
}

} // namespace zul
