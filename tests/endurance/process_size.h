#pragma once
// What the process holds: its memory in KiB and its open files or handles.

#ifdef _WIN32
#include <windows.h>
#include <psapi.h>

extern "C" {
#include "support/windows_handles.h"
}
#else
#include <dirent.h>
#include <fstream>
#include <string>
#endif

namespace endurance {

struct ProcessSize {
    long memory = 0;
    long handles = 0;
};

#ifdef _WIN32
inline ProcessSize process_size() {
    PROCESS_MEMORY_COUNTERS counters{};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return {static_cast<long>(counters.PagefileUsage / 1024), own_handles()};
}
#else
inline ProcessSize process_size() {
    ProcessSize size;
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.rfind("VmRSS:", 0) == 0)
            size.memory = std::stol(line.substr(6));
    if (DIR* folder = opendir("/proc/self/fd")) {
        while (readdir(folder) != nullptr)
            size.handles++;
        closedir(folder);
    }
    return size;
}
#endif

} // namespace endurance
