#include <cerrno>
#include <sched.h>
#include <time.h>

#include "platform/platform.h"

namespace zul::platform {

// A thread that has lowered its priority may not raise it again without privileges, so it is left alone.
void thread_set_priority(ThreadPriority) {}

void thread_yield() {
    sched_yield();
}

void thread_sleep(uint32_t milliseconds) {
    timespec left{static_cast<time_t>(milliseconds / 1000), static_cast<long>(milliseconds % 1000) * 1000000};
    while (nanosleep(&left, &left) != 0 && errno == EINTR) {
    }
}

} // namespace zul::platform
