#include <atomic>
#include <pthread.h>
#include <sys/mman.h>

#include "platform/platform.h"

namespace zul::platform {

// Adaptive: the lock guards a few dozen nanoseconds of work, for which a short spin beats a sleep.
static pthread_mutex_t mutex = PTHREAD_ADAPTIVE_MUTEX_INITIALIZER_NP;
static std::atomic<uint32_t> generation{0};

// In a page that the system hands zeroed to every child, also where no handler is called (_Fork, clone); null
// if it cannot.
static std::atomic<uint32_t>* isKnownProcess;

static std::atomic<uint32_t>* make_mark() {
    constexpr size_t kSize = 4096;
    void* page = mmap(nullptr, kSize, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (page == MAP_FAILED)
        return nullptr;
    if (madvise(page, kSize, MADV_WIPEONFORK) != 0) {
        munmap(page, kSize);
        return nullptr;
    }
    auto* mark = static_cast<std::atomic<uint32_t>*>(page);
    *mark = 1;
    return mark;
}

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
    isKnownProcess = make_mark();
}

void lock_destroy() {}

uint32_t fork_generation() {
    if (isKnownProcess != nullptr && isKnownProcess->load(std::memory_order_relaxed) == 0) {
        *isKnownProcess = 1;
        generation++;
    }
    return generation.load(std::memory_order_relaxed);
}

} // namespace zul::platform
