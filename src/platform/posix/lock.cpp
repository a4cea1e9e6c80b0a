#include <atomic>
#include <pthread.h>

#include "platform/platform.h"

namespace zul::platform {

// Adaptive: the lock guards a few dozen nanoseconds of work, for which a short spin beats a sleep.
static pthread_mutex_t mutex = PTHREAD_ADAPTIVE_MUTEX_INITIALIZER_NP;
static std::atomic<uint32_t> generation{0};

void lock_enter() {
    pthread_mutex_lock(&mutex);
}

void lock_leave() {
    pthread_mutex_unlock(&mutex);
}

static void child_of_fork() {
    generation++;
    lock_leave();
}

void lock_create() {
    // Forking with the lock held gives the child what it guards in a whole state.
    pthread_atfork(lock_enter, lock_leave, child_of_fork);
}

void lock_destroy() {}

uint32_t fork_generation() {
    return generation.load(std::memory_order_relaxed);
}

} // namespace zul::platform
