#include <windows.h>

#include "platform/platform.h"

namespace zul::platform {

static CRITICAL_SECTION section;

void lock_create() {
    // The lock guards a few dozen nanoseconds of work, for which a short spin beats a sleep.
    InitializeCriticalSectionAndSpinCount(&section, 1000);
}

void lock_destroy() {
    DeleteCriticalSection(&section);
}

void lock_enter() {
    EnterCriticalSection(&section);
}

void lock_leave() {
    LeaveCriticalSection(&section);
}

uint32_t fork_generation() {
    return 0;
}

} // namespace zul::platform
