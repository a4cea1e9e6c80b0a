#include <windows.h>
#include <cstdlib>
#include <ctime>

#include "platform/platform.h"

namespace zul::platform {

static constexpr char kOptionsKey[] = "Software\\Vantorel\\Zulkit\\Options";

// read_value reads one value of the options key; true if it is there, of the type asked for and within size.
static bool read_value(const char* name, DWORD wantedType, void* data, DWORD* size) {
    HKEY key;
    if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, kOptionsKey, 0, KEY_READ, &key) != ERROR_SUCCESS)
        return false;
    DWORD type = 0;
    const LSTATUS result = RegQueryValueExA(key, name, nullptr, &type, static_cast<BYTE*>(data), size);
    RegCloseKey(key);
    return result == ERROR_SUCCESS && type == wantedType;
}

bool option_text(const char* name, char* out, size_t size) {
    auto stored = static_cast<DWORD>(size - 1);
    if (!read_value(name, REG_SZ, out, &stored))
        return false;
    out[stored] = '\0'; // the registry does not promise the NUL
    return true;
}

bool option_number(const char* name, uint32_t* value) {
    DWORD number = 0;
    DWORD size = sizeof number;
    if (!read_value(name, REG_DWORD, &number, &size) || size != sizeof number)
        return false;
    *value = number;
    return true;
}

void event_log(const char* source, int type, uint32_t eventId, const char* message) {
    const HANDLE log = RegisterEventSourceA(nullptr, source);
    if (log == nullptr)
        return;
    ReportEventA(log, static_cast<WORD>(type), 0, eventId, nullptr, 1, 0, &message, nullptr);
    DeregisterEventSource(log);
}

// A warning shows the information icon too: only an error stops the user.
void message_box(const char* caption, int type, const char* message) {
    const bool isError = type == static_cast<int>(ReportType::error);
    MessageBoxA(nullptr, message, caption, isError ? MB_ICONHAND : MB_ICONINFORMATION);
}

bool append_line(const char* path, const char* line) {
    FILE* file = fopen(path, "a+t");
    if (file == nullptr)
        return false;
    const bool written = fputs(line, file) >= 0;
    return (fclose(file) == 0) && written;
}

void local_time_text(char out[27]) {
    const time_t now = time(nullptr);
    // NOLINTNEXTLINE(concurrency-mt-unsafe): the runtime has such a text for each thread
    const char* text = ctime(&now);
    snprintf(out, 27, "%.26s", text != nullptr ? text : "");
}

void end_process(int status) {
    _exit(status);
}

} // namespace zul::platform
