#include <atomic>
#include <pthread.h>

#include "platform/platform.h"

namespace zul::platform {

static pthread_key_t key;
static std::atomic<bool> exists{false}; // a deleted key's number may be another library's by now

bool slot_create(void (*atThreadEnd)(void* value)) {
    if (exists)
        return true;
    exists = pthread_key_create(&key, atThreadEnd) == 0;
    return exists;
}

void slot_destroy() {
    if (exists.exchange(false))
        pthread_key_delete(key);
}

void* slot_get() {
    return exists.load(std::memory_order_acquire) ? pthread_getspecific(key) : nullptr;
}

bool slot_set(void* value) {
    return exists && pthread_setspecific(key, value) == 0;
}

} // namespace zul::platform
