#include <atomic>
#include <pthread.h>
#include <sys/mman.h>
#include <unistd.h>

#include "platform/platform.h"

namespace zul::platform {

// Adaptive: a short spin costs less than a sleep, because the locks are held for some dozen nanoseconds.
static pthread_mutex_t mutexes[] = {PTHREAD_ADAPTIVE_MUTEX_INITIALIZER_NP,
                                    PTHREAD_ADAPTIVE_MUTEX_INITIALIZER_NP};
static std::atomic<uint32_t> generation{0};

// The thread that is forking and holds all locks, or 0; it has the same number in parent and child. Handlers
// that were registered before this library's run while it holds the locks, and they may call the library.
static std::atomic<pthread_t> forker{0};
static pid_t forkerProcess;

static bool is_forker() {
    return forker.load(std::memory_order_relaxed) == pthread_self();
}

// In a page that is zero in every child, also where no handler is called (_Fork, clone). Null if the system
// has no such pages.
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

static pthread_mutex_t* mutex(Lock lock) {
    return &mutexes[static_cast<int>(lock)];
}

void lock_enter(Lock lock) {
    if (!is_forker())
        pthread_mutex_lock(mutex(lock));
}

void lock_leave(Lock lock) {
    if (!is_forker())
        pthread_mutex_unlock(mutex(lock));
}

// Forking with the locks held gives the child what they guard in a whole state.
static void before_fork() {
    lock_enter(Lock::generator);
    lock_enter(Lock::process);
    forkerProcess = getpid();
    forker = pthread_self();
}

static void after_fork() {
    forker = 0;
    lock_leave(Lock::process);
    lock_leave(Lock::generator);
}

static void child_after_fork() {
    generation++;
    after_fork();
}

void lock_create() {
    pthread_atfork(before_fork, after_fork, child_after_fork);
    isKnownProcess = make_mark();
}

void lock_destroy() {}

uint32_t fork_generation() {
    if (isKnownProcess != nullptr && isKnownProcess->load(std::memory_order_relaxed) == 0) {
        *isKnownProcess = 1;
        generation++;
    } else if (is_forker() && forkerProcess != getpid()) { // child_after_fork has yet to be called
        forkerProcess = getpid();
        generation++;
    }
    return generation.load(std::memory_order_relaxed);
}

} // namespace zul::platform
