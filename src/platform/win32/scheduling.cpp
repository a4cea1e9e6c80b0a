#include <windows.h>

#include "platform/platform.h"

namespace zul::platform {

void thread_set_priority(ThreadPriority priority) {
    SetThreadPriority(GetCurrentThread(), static_cast<int>(priority));
}

void thread_yield() {
    Sleep(0);
}

void thread_sleep(uint32_t milliseconds) {
    Sleep(milliseconds);
}

} // namespace zul::platform
