#include <windows.h>
#include <cstring>
#include <fcntl.h>
#include <io.h>

#include "platform/platform.h"
#include "platform/win32/module_handle.h"

namespace zul::platform {

static HMODULE moduleHandle_;
static wchar_t modulePath_[32768]; // the longest possible path; too long for a thread's stack

uint32_t process_id() {
    return GetCurrentProcessId();
}

uint32_t thread_id() {
    return GetCurrentThreadId();
}

size_t user_name(char* out, size_t size) {
    auto room = static_cast<DWORD>(size);
    return GetUserNameA(out, &room) ? strlen(out) : 0;
}

size_t computer_name(char* out, size_t size) {
    auto room = static_cast<DWORD>(size);
    return GetComputerNameA(out, &room) ? strlen(out) : 0;
}

// file_of gives the path of a module's file: cut to the room, and always terminated.
static size_t file_of(HMODULE module, char* out, size_t size) {
    if (GetModuleFileNameA(module, out, static_cast<DWORD>(size)) == 0)
        out[0] = '\0';
    out[size - 1] = '\0';
    return strlen(out);
}

size_t executable_directory(char* out, size_t size) {
    file_of(nullptr, out, size);
    if (char* separator = strrchr(out, '\\'))
        separator[1] = '\0';
    return strlen(out);
}

void remember_module(void* moduleHandle) {
    moduleHandle_ = static_cast<HMODULE>(moduleHandle);
    constexpr DWORD kRoom = sizeof modulePath_ / sizeof modulePath_[0];
    if (GetModuleFileNameW(moduleHandle_, modulePath_, kRoom) >= kRoom)
        modulePath_[0] = L'\0';
}

HMODULE module_handle() {
    return moduleHandle_;
}

size_t module_path(char* out, size_t size) {
    return file_of(moduleHandle_, out, size);
}

// Wide characters: the path may have characters that the code page lacks.
FileHandle module_file() {
    const int fd = _wopen(modulePath_, _O_RDONLY | _O_BINARY | _O_NOINHERIT);
    return fd < 0 ? kNoFile : fd;
}

const char* platform_word() {
    return "Win64";
}

char path_separator() {
    return '\\';
}

} // namespace zul::platform
