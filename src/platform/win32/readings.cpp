#include <windows.h>
#include <cstring>
#include <ctime>

#include "platform/platform.h"

namespace zul::platform {

uint64_t system_time() {
    FILETIME now{};
    GetSystemTimeAsFileTime(&now);
    return (static_cast<uint64_t>(now.dwHighDateTime) << 32) | now.dwLowDateTime;
}

bool local_time_normalise(tm* time) {
    tm parts = *time; // the system may change it before it fails
    const time_t moment = mktime(&parts);
    if (moment == static_cast<time_t>(-1) || gmtime_s(&parts, &moment) != 0)
        return false;
    *time = parts;
    return true;
}

uint32_t tick_count() {
    return GetTickCount();
}

uint64_t precise_ticks() {
    LARGE_INTEGER now{};
    QueryPerformanceCounter(&now);
    return static_cast<uint64_t>(now.QuadPart);
}

bool free_clusters(uint32_t* count) {
    DWORD sectorsPerCluster, bytesPerSector, freeCount, total;
    if (!GetDiskFreeSpaceA(nullptr, &sectorsPerCluster, &bytesPerSector, &freeCount, &total))
        return false;
    *count = freeCount;
    return true;
}

size_t memory_status(uint8_t* reading) {
    MEMORYSTATUS status{};
    static_assert(sizeof status <= kReadingSize);
    status.dwLength = sizeof status;
    GlobalMemoryStatus(&status);
    memcpy(reading, &status, sizeof status);
    return sizeof status;
}

size_t power_status(uint8_t* reading) {
    SYSTEM_POWER_STATUS status{};
    static_assert(sizeof status <= kReadingSize);
    if (!GetSystemPowerStatus(&status))
        return 0;
    memcpy(reading, &status, sizeof status);
    return sizeof status;
}

namespace {

struct WindowSink {
    void (*sink)(void* context, const void* data, size_t size);
    void* context;
    bool any;
};

BOOL CALLBACK report_window(HWND window, LPARAM parameter) {
    auto* target = reinterpret_cast<WindowSink*>(parameter);
    RECT place{};
    GetWindowRect(window, &place);
    // NOLINTNEXTLINE(bugprone-sizeof-expression): the handle itself is what varies
    target->sink(target->context, &window, sizeof window);
    target->sink(target->context, &place, sizeof place);
    target->any = true;
    return TRUE;
}

} // namespace

bool activity_report(void (*sink)(void* context, const void* data, size_t size), void* context) {
    WindowSink target{sink, context, false};
    EnumWindows(report_window, reinterpret_cast<LPARAM>(&target));
    return target.any;
}

} // namespace zul::platform
