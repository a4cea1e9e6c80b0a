#include "encode/whole_file.h"

#include <algorithm>

#include "frame/err.h"
#include "frame/file_stream.h"
#include "frame/text.h"
#include "zulcore.h"

namespace zul {

int read_whole_file(const char* path, SecretBuffer& content, size_t maxSize) {
    File file(path, platform::OpenMode::read);
    if (!file.is_open())
        return err_fail(OPEN_ERROR, "Cannot open file '%s'", shown_name(path));
    const int64_t length = file.length();
    // A block that is too big would end the process; a big file is only bad input.
    if (length > static_cast<int64_t>(maxSize))
        return err_fail(OPEN_ERROR, "File '%s' is too large", shown_name(path));
    if (length >= 0) {
        auto size = static_cast<size_t>(length);
        bool failed = false;
        SecretBuffer whole(size + 1);
        // A file may say that it is empty, and fail only as it is read.
        const size_t wanted = std::max<size_t>(size, 1);
        const size_t got = platform::file_read(file.handle(), whole.data(), wanted, &failed);
        if (failed)
            return err_fail(READ_ERROR, "Cannot read file '%s'", shown_name(path));
        if (got >= size) {
            whole[size] = 0;
            whole.shrink(size);
            content = std::move(whole);
            return 0;
        }
    }
    return err_fail(OPEN_ERROR, "Cannot read file '%s'", shown_name(path));
}

} // namespace zul
