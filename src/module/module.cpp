#include "module/module.h"

#include <atomic>

#include "frame/call_frame.h"
#include "frame/thread_record.h"
#include "frame/wipe.h"
#include "key/string_key.h"
#include "module/power_up_tests.h"
#include "platform/platform.h"
#include "rng/rng.h"
#include "rsa/process_key.h"

namespace zul {

static std::atomic<bool> loaded{false};

bool module_start(void* moduleHandle) {
    platform::remember_module(moduleHandle);
    platform::lock_create();
    if (!records_create()) {
        platform::lock_destroy();
        return false;
    }
    loaded = true;
    return true;
}

bool module_load(void* moduleHandle) {
    if (!module_start(moduleHandle))
        return false;
    // No thread has a record yet, so nothing needs the lock. Its bytes may be damaged: taking it could hang.
    if (!integrity_holds()) {
        loaded = false;
        platform::slot_destroy();
        platform::lock_destroy();
        return false;
    }
    if (power_up_tests_pass() && module_thread_attach())
        return true;
    module_unload();
    return false;
}

bool module_thread_attach() {
    // The slot decides: a thread without a record of its own uses the shared one, and is refused.
    thread_record(RecordPath::generator);
    if (platform::slot_get() == nullptr)
        return false;
    rng_stir(0);
    return true;
}

void module_thread_detach() {
    record_release();
}

void module_exit() {
    // Nothing is freed and no lock is taken: other threads may be using the memory and hold the lock.
    if (void* own = platform::slot_get())
        wipe_bytes(&static_cast<ThreadRecord*>(own)->rng, sizeof(RngState));
}

void module_unload() {
    if (!loaded.exchange(false))
        return;
    records_destroy();
    rng_reset_pools();
    process_key_forget();
    string_key_forget();
    platform::lock_destroy();
}

} // namespace zul
