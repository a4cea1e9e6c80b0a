#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/file_hooks.h"
#include "platform/platform.h"

namespace zul::platform {

static int descriptor(FileHandle file) {
    return static_cast<int>(file);
}

// A file without any write permission is marked read-only. The system lets the superuser write it all the
// same; the mark holds for everybody here, as it does on Windows.
static bool is_marked_read_only(const struct stat& status) {
    return S_ISREG(status.st_mode) && (status.st_mode & 0222) == 0;
}

static int64_t length_of(const struct stat& status) {
    return S_ISREG(status.st_mode) ? status.st_size : -1;
}

FileHandle file_open(const char* path, OpenMode mode, int64_t* length) {
    struct stat status {};
    const bool writes = mode != OpenMode::read && mode != OpenMode::readText;
    if (file_fails(mode == OpenMode::create || mode == OpenMode::createSecret ? FileOperation::create
                                                                              : FileOperation::open,
                   kNoFile, path))
        return kNoFile;
    if (writes && stat(path, &status) == 0 && is_marked_read_only(status))
        return kNoFile;

    int flags = O_RDONLY;
    if (mode == OpenMode::update)
        flags = O_RDWR;
    else if (writes)
        flags = O_WRONLY | O_CREAT | O_TRUNC;
    int fd;
    do
        fd = open(path, flags | O_CLOEXEC, mode == OpenMode::createSecret ? 0600 : 0666);
    while (fd < 0 && errno == EINTR);
    if (fd < 0)
        return kNoFile;
    if (!writes && (fstat(fd, &status) != 0 || S_ISDIR(status.st_mode))) { // the system refuses to write one
        close(fd);
        return kNoFile;
    }
    if (!writes && length != nullptr)
        *length = length_of(status);
    if (mode == OpenMode::createSecret && fstat(fd, &status) == 0 && S_ISREG(status.st_mode))
        // An existing file may have other rights. Only its owner can change them, and some file systems keep
        // none.
        static_cast<void>(fchmod(fd, 0600) == 0);
    return fd;
}

FileHandle file_standard(Standard which) {
    if (file_fails(FileOperation::open, kNoFile))
        return kNoFile;
    // Not the number of a standard stream that is closed: a later call would take it for that stream.
    return fcntl(which == Standard::input ? STDIN_FILENO : STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
}

bool file_close(FileHandle file) {
    const bool fails = file_fails(FileOperation::close, file);
    return close(descriptor(file)) == 0 && !fails;
}

// read_some is read() past interruptions: 0 at the end of the file, -1 on an error.
static ssize_t read_some(int fd, uint8_t* buffer, size_t size) {
    ssize_t got;
    do
        got = read(fd, buffer, size);
    while (got < 0 && errno == EINTR);
    return got;
}

const char* line_end() {
    return "\n";
}

bool file_folds_line_ends() {
    return false;
}

size_t file_read(FileHandle file, void* buffer, size_t size, bool* failed) {
    const int fd = descriptor(file);
    auto* bytes = static_cast<uint8_t*>(buffer);
    size_t done = 0;
    while (done < size) {
        const ssize_t got = read_some(fd, bytes + done, size - done);
        if (got < 0 && failed != nullptr)
            *failed = true;
        if (got <= 0)
            break;
        done += static_cast<size_t>(got);
    }
    return file_read_part(file, done, failed);
}

bool file_write(FileHandle file, const void* data, size_t size) {
    const auto* bytes = static_cast<const uint8_t*>(data);
    const FileFault fault = file_fault(FileOperation::write, file);
    size = file_part(fault, size);
    while (size > 0) {
        const ssize_t put = write(descriptor(file), bytes, size);
        if (put < 0 && errno == EINTR)
            continue;
        if (put <= 0)
            return false;
        bytes += put;
        size -= static_cast<size_t>(put);
    }
    return fault == FileFault::none;
}

bool file_rewind(FileHandle file) {
    return file_seek(file, 0);
}

bool file_seek(FileHandle file, int64_t offset) {
    return !file_fails(FileOperation::seek, file) &&
           lseek(descriptor(file), static_cast<off_t>(offset), SEEK_SET) == offset;
}

bool file_empty(FileHandle file) {
    return !file_fails(FileOperation::empty, file) && ftruncate(descriptor(file), 0) == 0;
}

int64_t file_length(FileHandle file) {
    struct stat status {};
    return fstat(descriptor(file), &status) == 0 ? length_of(status) : -1;
}

bool file_commit(FileHandle file) {
    return !file_fails(FileOperation::commit, file) && fsync(descriptor(file)) == 0;
}

static bool set_lock(FileHandle file, short type, size_t length) {
    struct flock region {};
    region.l_type = type;
    region.l_whence = SEEK_SET;
    region.l_len = static_cast<off_t>(length);
    // A lock of the open file, not of the process: two threads exclude each other as two processes do.
    return fcntl(descriptor(file), F_OFD_SETLK, &region) == 0;
}

bool file_lock(FileHandle file, size_t length) {
    return !file_fails(FileOperation::lock, file) && set_lock(file, F_WRLCK, length);
}

void file_unlock(FileHandle file, size_t length) {
    set_lock(file, F_UNLCK, length);
}

bool file_remove(const char* path) {
    return !file_fails(FileOperation::remove, kNoFile, path) && unlink(path) == 0;
}

bool file_is(FileHandle file, const char* path) {
    struct stat mine {};
    struct stat other {};
    return fstat(descriptor(file), &mine) == 0 && stat(path, &other) == 0 && mine.st_dev == other.st_dev &&
           mine.st_ino == other.st_ino;
}

bool file_is(FileHandle file, FileHandle other) {
    struct stat mine {};
    struct stat its {};
    return fstat(descriptor(file), &mine) == 0 && fstat(descriptor(other), &its) == 0 &&
           mine.st_dev == its.st_dev && mine.st_ino == its.st_ino;
}

bool file_is(const char* path, const char* other) {
    struct stat its {};
    struct stat others {};
    return stat(path, &its) == 0 && stat(other, &others) == 0 && its.st_dev == others.st_dev &&
           its.st_ino == others.st_ino;
}

bool file_is_regular(const char* path) {
    struct stat status {};
    return stat(path, &status) == 0 && S_ISREG(status.st_mode);
}

bool file_is_pipe(const char* path) {
    struct stat status {};
    return stat(path, &status) == 0 && S_ISFIFO(status.st_mode);
}

} // namespace zul::platform
