#include <windows.h>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <io.h>

#include "platform/file_hooks.h"
#include "platform/platform.h"

namespace zul::platform {

namespace {

// AccessRights holds those of a file (a DACL).
struct AccessRights {
    alignas(void*) uint8_t descriptor[4096];

    bool read(const char* path) {
        DWORD size = 0;
        return GetFileSecurityA(path, DACL_SECURITY_INFORMATION, descriptor, sizeof descriptor, &size) != 0;
    }
    bool give(HANDLE file) {
        return SetKernelObjectSecurity(file, DACL_SECURITY_INFORMATION, descriptor) != 0;
    }
};

// may_write asks the system, without changing the file. *names is the number of its names, 0 for what is not
// on a disk.
bool may_write(const char* path, DWORD* names) {
    const HANDLE handle =
        CreateFileA(path, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                    OPEN_EXISTING, 0, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
        return false;
    BY_HANDLE_FILE_INFORMATION information{};
    const bool onDisk = GetFileType(handle) == FILE_TYPE_DISK;
    *names = onDisk && GetFileInformationByHandle(handle, &information) ? information.nNumberOfLinks : 0;
    CloseHandle(handle);
    return true;
}

// create_new tries names until one is free. Nobody else can open the file before it is closed.
HANDLE create_new(const char* path, char* newPath) {
    constexpr unsigned kTries = 100;
    const auto first = static_cast<unsigned>(precise_ticks());
    for (unsigned i = 0; i < kTries; i++) {
        snprintf(newPath, strlen(path) + kBesideSuffix, "%s.%08x.tmp", path, first + i);
        const HANDLE file = CreateFileA(newPath, GENERIC_WRITE | WRITE_DAC, 0, nullptr, CREATE_NEW,
                                        FILE_ATTRIBUTE_NORMAL, nullptr);
        if (file != INVALID_HANDLE_VALUE || GetLastError() != ERROR_FILE_EXISTS)
            return file;
    }
    return INVALID_HANDLE_VALUE;
}

} // namespace

FileHandle file_create_beside(const char* path, bool /*secret*/, char* newPath, bool* inPlace) {
    constexpr DWORD kNotPlain =
        FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT | FILE_ATTRIBUTE_DEVICE;
    const DWORD attributes = GetFileAttributesA(path);
    *inPlace = attributes == INVALID_FILE_ATTRIBUTES || (attributes & kNotPlain) != 0;
    DWORD names = 0;
    if (*inPlace || (attributes & FILE_ATTRIBUTE_READONLY) != 0 || !may_write(path, &names))
        return kNoFile;
    AccessRights rights;
    *inPlace = names != 1 || !rights.read(path);
    if (*inPlace)
        return kNoFile;
    if (file_fails(FileOperation::createBeside, kNoFile, path))
        return kNoFile;
    const HANDLE file = create_new(path, newPath);
    if (file == INVALID_HANDLE_VALUE) {
        // Not on a full disk: there the file at path is all that is left.
        const DWORD error = GetLastError();
        *inPlace = error == ERROR_ACCESS_DENIED || error == ERROR_PATH_NOT_FOUND ||
                   error == ERROR_FILENAME_EXCED_RANGE || error == ERROR_INVALID_NAME;
        return kNoFile;
    }
    const int fd = rights.give(file) ? _open_osfhandle(reinterpret_cast<intptr_t>(file), _O_BINARY) : -1;
    if (fd >= 0)
        return fd;
    CloseHandle(file);
    DeleteFileA(newPath);
    *inPlace = true;
    return kNoFile;
}

bool file_replace(const char* newPath, const char* path) {
    return !file_fails(FileOperation::replace, kNoFile, path) &&
           MoveFileExA(newPath, path, MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

} // namespace zul::platform
