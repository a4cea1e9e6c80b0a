#include <windows.h>
#include <algorithm>
#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>

#include "platform/file_hooks.h"
#include "platform/platform.h"

namespace zul::platform {

static int descriptor(FileHandle file) {
    return static_cast<int>(file);
}

static HANDLE system_handle(FileHandle file) {
    return reinterpret_cast<HANDLE>(_get_osfhandle(descriptor(file)));
}

// Asked for explicitly: an emulated system whose user may write everything ignores the mark.
static bool is_marked_read_only(const char* path) {
    const DWORD attributes = GetFileAttributesA(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

FileHandle file_open(const char* path, OpenMode mode, int64_t* length) {
    int flags = _O_BINARY | _O_NOINHERIT;
    switch (mode) {
    case OpenMode::read:
        flags |= _O_RDONLY;
        break;
    case OpenMode::readText:
        flags = _O_TEXT | _O_NOINHERIT | _O_RDONLY;
        break;
    case OpenMode::update:
        flags |= _O_RDWR;
        break;
    case OpenMode::create:
    case OpenMode::createSecret:
        flags |= _O_WRONLY | _O_CREAT | _O_TRUNC;
        break;
    }
    const bool writes = mode != OpenMode::read && mode != OpenMode::readText;
    if (file_fails((flags & _O_CREAT) != 0 ? FileOperation::create : FileOperation::open, kNoFile, path))
        return kNoFile;
    if (writes && is_marked_read_only(path))
        return kNoFile;
    const int fd = _open(path, flags, _S_IREAD | _S_IWRITE);
    if (fd < 0)
        return kNoFile;
    if (!writes && length != nullptr)
        *length = file_length(fd);
    return fd;
}

// A duplicate, because the mode of the runtime's own descriptor belongs to the program.
FileHandle file_standard(Standard which) {
    if (file_fails(FileOperation::open, kNoFile))
        return kNoFile;
    const HANDLE shared = GetStdHandle(which == Standard::input ? STD_INPUT_HANDLE : STD_OUTPUT_HANDLE);
    const HANDLE process = GetCurrentProcess();
    HANDLE own = nullptr;
    if (shared == nullptr || shared == INVALID_HANDLE_VALUE ||
        !DuplicateHandle(process, shared, process, &own, 0, FALSE, DUPLICATE_SAME_ACCESS))
        return kNoFile;
    const int fd = _open_osfhandle(reinterpret_cast<intptr_t>(own), _O_BINARY | _O_NOINHERIT);
    if (fd >= 0)
        return fd;
    CloseHandle(own);
    return kNoFile;
}

bool file_close(FileHandle file) {
    const bool fails = file_fails(FileOperation::close, file);
    return _close(descriptor(file)) == 0 && !fails;
}

const char* line_end() {
    return "\r\n";
}

bool file_folds_line_ends() {
    return true; // the C runtime does
}

size_t file_read(FileHandle file, void* buffer, size_t size, bool* failed) {
    auto* bytes = static_cast<uint8_t*>(buffer);
    size_t done = 0;
    while (done < size) {
        const auto part = static_cast<unsigned>(std::min<size_t>(size - done, 1u << 30));
        const int got = _read(descriptor(file), bytes + done, part);
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
        const auto part = static_cast<unsigned>(std::min<size_t>(size, 1u << 30));
        const int put = _write(descriptor(file), bytes, part);
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
    return !file_fails(FileOperation::seek, file) && _lseeki64(descriptor(file), offset, SEEK_SET) == offset;
}

bool file_empty(FileHandle file) {
    return !file_fails(FileOperation::empty, file) && _chsize_s(descriptor(file), 0) == 0;
}

int64_t file_length(FileHandle file) {
    if (GetFileType(system_handle(file)) != FILE_TYPE_DISK)
        return -1;
    return _filelengthi64(descriptor(file));
}

bool file_commit(FileHandle file) {
    return !file_fails(FileOperation::commit, file) && _commit(descriptor(file)) == 0;
}

bool file_lock(FileHandle file, size_t length) {
    return !file_fails(FileOperation::lock, file) &&
           LockFile(system_handle(file), 0, 0, static_cast<DWORD>(length), 0) != 0;
}

void file_unlock(FileHandle file, size_t length) {
    UnlockFile(system_handle(file), 0, 0, static_cast<DWORD>(length), 0);
}

bool file_remove(const char* path) {
    return !file_fails(FileOperation::remove, kNoFile, path) && _unlink(path) == 0;
}

static bool is_same(HANDLE file, HANDLE other) {
    BY_HANDLE_FILE_INFORMATION mine{};
    BY_HANDLE_FILE_INFORMATION its{};
    return GetFileInformationByHandle(file, &mine) && GetFileInformationByHandle(other, &its) &&
           mine.dwVolumeSerialNumber == its.dwVolumeSerialNumber &&
           mine.nFileIndexHigh == its.nFileIndexHigh && mine.nFileIndexLow == its.nFileIndexLow;
}

// NamedFile opens a file for none of its content, whatever its access rights and other users.
namespace {
class NamedFile {
  public:
    explicit NamedFile(const char* path)
        : handle_(CreateFileA(path, 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                              OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr)) {}
    NamedFile(const NamedFile&) = delete;
    NamedFile& operator=(const NamedFile&) = delete;
    ~NamedFile() {
        if (handle_ != INVALID_HANDLE_VALUE)
            CloseHandle(handle_);
    }
    bool is(HANDLE other) const { return handle_ != INVALID_HANDLE_VALUE && is_same(handle_, other); }
    bool is(const NamedFile& other) const {
        return other.handle_ != INVALID_HANDLE_VALUE && is(other.handle_);
    }

  private:
    const HANDLE handle_;
};
} // namespace

bool file_is(FileHandle file, const char* path) {
    return NamedFile(path).is(system_handle(file));
}

bool file_is(const char* path, const char* other) {
    return NamedFile(path).is(NamedFile(other));
}

bool file_is(FileHandle file, FileHandle other) {
    return is_same(system_handle(file), system_handle(other));
}

bool file_is_regular(const char* path) {
    struct _stat64 status {};
    return _stat64(path, &status) == 0 && (status.st_mode & _S_IFMT) == _S_IFREG;
}

// The name tells it: asking the system would open the pipe.
bool file_is_pipe(const char* path) {
    constexpr char kPipes[] = R"(\\.\pipe\)";
    return _strnicmp(path, kPipes, sizeof kPipes - 1) == 0;
}

} // namespace zul::platform
