#include <sched.h>

#include "platform/platform.h"

namespace zul::platform {

// A thread that has lowered its priority may not raise it again without privileges, so it is left alone.
void thread_set_priority(ThreadPriority) {}

void thread_yield() {
    sched_yield();
}

} // namespace zul::platform
