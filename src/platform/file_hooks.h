#pragma once
#include "platform/platform.h"

namespace zul::platform {

// What can fail of a file. Questions about one (its length, whether it is regular or the same as another) are
// not among these: "no" is an ordinary answer to them.
enum class FileOperation {
    open,
    create,
    createBeside,
    read,
    write,
    seek,
    empty,
    commit,
    lock,
    close,
    replace,
    remove
};

enum class FileFault {
    none,
    fails,   // nothing of it is done, but for a close: the handle is gone
    partway, // of a read or write: half of it is done
};

// The seam for tests of file errors: fault is asked before each operation, with the handle and the name as
// far as the operation has them. Not exported by the module.
struct FileHooks {
    FileFault (*fault)(FileOperation operation, FileHandle file, const char* path) = nullptr;
};

void file_set_hooks(FileHooks hooks);

// file_fault is how the implementations of platform.h ask.
FileFault file_fault(FileOperation operation, FileHandle file, const char* path = nullptr);

inline bool file_fails(FileOperation operation, FileHandle file, const char* path = nullptr) {
    return file_fault(operation, file, path) != FileFault::none;
}

// file_part is how much of a read or write is done under a fault.
inline size_t file_part(FileFault fault, size_t size) {
    return fault == FileFault::none ? size : fault == FileFault::partway ? size / 2 : 0;
}

// file_read_part asks for a read that has got so many bytes, and gives how many of them count.
inline size_t file_read_part(FileHandle file, size_t got, bool* failed) {
    const FileFault fault = file_fault(FileOperation::read, file);
    if (fault != FileFault::none && failed != nullptr)
        *failed = true;
    return file_part(fault, got);
}

} // namespace zul::platform
