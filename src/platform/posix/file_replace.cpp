#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/file_hooks.h"
#include "platform/platform.h"

namespace zul::platform {

// may_write asks the system, without changing the file.
static bool may_write(const char* path) {
    const int fd = open(path, O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    return fd >= 0 && close(fd) == 0;
}

static bool take_owner_and_mode(int fd, const struct stat& old, bool secret) {
    struct stat mine {};
    if (fstat(fd, &mine) != 0)
        return false;
    const bool sameOwner = mine.st_uid == old.st_uid && mine.st_gid == old.st_gid;
    return (sameOwner || fchown(fd, old.st_uid, old.st_gid) == 0) &&
           fchmod(fd, secret ? 0600 : old.st_mode & 0777) == 0;
}

// create_new tries names until one is free.
static int create_new(const char* path, char* newPath) {
    constexpr unsigned kTries = 100;
    const auto first = static_cast<unsigned>(precise_ticks());
    for (unsigned i = 0; i < kTries; i++) {
        snprintf(newPath, strlen(path) + kBesideSuffix, "%s.%08x.tmp", path, first + i);
        const int fd = open(newPath, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
        if (fd >= 0 || errno != EEXIST)
            return fd;
    }
    return -1;
}

FileHandle file_create_beside(const char* path, bool secret, char* newPath, bool* inPlace) {
    struct stat old {};
    *inPlace = lstat(path, &old) != 0 || !S_ISREG(old.st_mode) || old.st_nlink != 1;
    const bool isMarkedReadOnly = (old.st_mode & 0222) == 0;
    if (*inPlace || isMarkedReadOnly || !may_write(path))
        return kNoFile;
    if (file_fails(FileOperation::createBeside, kNoFile, path))
        return kNoFile;
    const int fd = create_new(path, newPath);
    if (fd < 0) {
        // Not on a full disk: there the file at path is all that is left.
        *inPlace = errno == EACCES || errno == EPERM || errno == EROFS || errno == ENAMETOOLONG;
        return kNoFile;
    }
    if (take_owner_and_mode(fd, old, secret))
        return fd;
    close(fd);
    unlink(newPath);
    *inPlace = true;
    return kNoFile;
}

bool file_replace(const char* newPath, const char* path) {
    return !file_fails(FileOperation::replace, kNoFile, path) && rename(newPath, path) == 0;
}

} // namespace zul::platform
