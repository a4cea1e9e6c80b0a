#include <cerrno>
#include <fcntl.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include "platform/platform.h"
#include "platform/random_hooks.h"

namespace zul::platform {

// read_all fills out with what the reader gives; false after its first error or end.
template<class Reader>
static bool read_all(uint8_t* out, size_t size, Reader reader) {
    while (size > 0) {
        const ssize_t got = reader(out, size);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            return false;
        out += got;
        size -= static_cast<size_t>(got);
    }
    return true;
}

// Under another root directory the name may belong to another file.
static bool is_random_device(int fd) {
    struct stat status {};
    return fstat(fd, &status) == 0 && S_ISCHR(status.st_mode) && status.st_rdev == makedev(1, 9);
}

static bool read_device(uint8_t* out, size_t size) {
    const int fd = open("/dev/urandom", O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return false;
    const bool done = is_random_device(fd) &&
                      read_all(out, size, [fd](uint8_t* to, size_t room) { return read(fd, to, room); });
    close(fd);
    return done;
}

bool random_from(RandomSource source, void* out, size_t size) {
    auto* bytes = static_cast<uint8_t*>(out);
    if (source == RandomSource::device)
        return read_device(bytes, size);
    return read_all(bytes, size, [](uint8_t* to, size_t room) { return getrandom(to, room, 0); });
}

} // namespace zul::platform
