#include <atomic>
#include <pthread.h>
#include <sys/mman.h>
#include <unistd.h>

#include "platform/platform.h"

namespace zul::platform {

// Adaptive: the locks guard a few dozen nanoseconds of work, for which a short spin beats a sleep.
static pthread_mutex_t mutexes[] = {PTHREAD_ADAPTIVE_MUTEX_INITIALIZER_NP,
                                    PTHREAD_ADAPTIVE_MUTEX_INITIALIZER_NP};
static std::atomic<uint32_t> generation{0};

// The thread that is forking and holds all locks, 0 if there is none: the same in parent and child. Handlers
// of a fork that were registered before this library's run while it holds them, and may call the library.
static std::atomic<pthread_t> forker{0};
static pid_t forkerProcess;

static bool is_forker() {
    return forker.load(std::memory_order_relaxed) == pthread_self();
}

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
