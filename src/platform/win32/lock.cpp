#include <windows.h>

#include "platform/platform.h"

namespace zul::platform {

static CRITICAL_SECTION sections[2];

static CRITICAL_SECTION* section(Lock lock) {
    return &sections[static_cast<int>(lock)];
}

void lock_create() {
    // A short spin costs less than a sleep, because the locks are held for some dozen nanoseconds.
    for (CRITICAL_SECTION& each : sections)
        InitializeCriticalSectionAndSpinCount(&each, 1000);
}

void lock_destroy() {
    for (CRITICAL_SECTION& each : sections)
        DeleteCriticalSection(&each);
}

void lock_enter(Lock lock) {
    EnterCriticalSection(section(lock));
}

void lock_leave(Lock lock) {
    LeaveCriticalSection(section(lock));
}

uint32_t fork_generation() {
    return 0;
}

} // namespace zul::platform
