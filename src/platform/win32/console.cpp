#include <windows.h>

#include "platform/platform.h"

namespace zul::platform {

bool console_open(const char* title) {
    if (!AllocConsole()) // the process has one
        return false;
    SetConsoleTitleA(title);
    return true;
}

void console_write(char c) {
    DWORD written = 0;
    WriteConsoleA(GetStdHandle(STD_OUTPUT_HANDLE), &c, 1, &written, nullptr);
}

void console_close() {
    FreeConsole();
}

} // namespace zul::platform
