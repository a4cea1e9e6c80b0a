#include <unistd.h>

#include "platform/platform.h"

namespace zul::platform {

bool console_open(const char*) {
    return false;
}

void console_write(char c) {
    [[maybe_unused]] const ssize_t written = write(STDERR_FILENO, &c, 1);
}

void console_close() {}

} // namespace zul::platform
