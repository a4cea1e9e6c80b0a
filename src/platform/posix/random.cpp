#include <cerrno>
#include <sys/random.h>

#include "platform/platform.h"

namespace zul::platform {

bool system_random(void* out, size_t size) {
    auto* bytes = static_cast<uint8_t*>(out);
    while (size > 0) {
        const ssize_t got = getrandom(bytes, size, 0);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            return false;
        bytes += got;
        size -= static_cast<size_t>(got);
    }
    return true;
}

} // namespace zul::platform
