#include "cms/content/content_file.h"

#include "frame/err.h"
#include "frame/file_stream.h"
#include "frame/text.h"
#include "zulcore.h"

namespace zul {

int content_write(const char* path, const uint8_t* content, size_t size) {
    // Not by a FileWriter: it would copy the whole, and not tell the two failures apart.
    File file(path, platform::OpenMode::create);
    if (!file.is_open()) {
        err_add_text("Cannot create file '%s'", shown_name(path));
        return CREATE_ERROR;
    }
    const bool written = size == 0 || platform::file_write(file.handle(), content, size);
    const bool removable = platform::file_is_regular(path) && platform::file_is(file.handle(), path);
    if (!written && removable)
        platform::file_empty(file.handle()); // another name of the file, a link, must not keep a part
    const bool closed = file.close();
    if (written && closed)
        return 0;
    if (removable)
        platform::file_remove(path);
    err_add_text("Cannot write file '%s'", shown_name(path));
    return written ? IO_ERROR : WRITE_ERROR;
}

} // namespace zul
