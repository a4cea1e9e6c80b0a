#include <climits>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "platform/platform.h"

namespace zul::platform {

static char modulePath[PATH_MAX];

// copy_text copies what fits and returns its length.
static size_t copy_text(char* out, size_t size, const char* text) {
    snprintf(out, size, "%s", text);
    return strlen(out);
}

uint32_t process_id() {
    return static_cast<uint32_t>(getpid());
}

uint32_t thread_id() {
    return static_cast<uint32_t>(syscall(SYS_gettid));
}

size_t user_name(char* out, size_t size) {
    char number[16];
    snprintf(number, sizeof number, "%u", static_cast<unsigned>(geteuid()));
    return copy_text(out, size, number);
}

size_t computer_name(char* out, size_t size) {
    char name[HOST_NAME_MAX + 1] = {};
    if (gethostname(name, sizeof name - 1) != 0)
        return 0;
    return copy_text(out, size, name);
}

size_t executable_directory(char* out, size_t size) {
    char path[PATH_MAX] = {};
    if (readlink("/proc/self/exe", path, sizeof path - 1) <= 0)
        return copy_text(out, size, "");
    if (char* slash = strrchr(path, '/'))
        slash[1] = '\0';
    return copy_text(out, size, path);
}

// The path is made whole at load, while the directory that a relative name refers to is still current.
void remember_module(void* moduleHandle) {
    Dl_info info{};
    if (moduleHandle == nullptr || dladdr(moduleHandle, &info) == 0 || info.dli_fname == nullptr)
        return;
    if (realpath(info.dli_fname, modulePath) == nullptr)
        copy_text(modulePath, sizeof modulePath, info.dli_fname);
}

size_t module_path(char* out, size_t size) {
    return copy_text(out, size, modulePath);
}

FileHandle module_file() {
    return file_is_regular(modulePath) ? file_open(modulePath, OpenMode::read) : kNoFile;
}

const char* platform_word() {
    return "Lin64";
}

char path_separator() {
    return '/';
}

} // namespace zul::platform
