#include "module/module.h"

#include <atomic>

#include "frame/thread_record.h"
#include "frame/wipe.h"
#include "module/power_up_tests.h"
#include "platform/platform.h"
#include "rng/rng.h"
#include "rsa/process_key.h"

namespace zul {

void rng_stir(int option);

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
    // No thread has a record yet: nothing needs the lock, on whose damaged bytes a thread could wait for
    // ever.
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
    // Not the record itself but its being kept decides: a thread that fell back on the shared one is refused.
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
    // Nothing is freed, no lock is taken: memory and lock may be in the hands of other threads.
    if (void* own = platform::slot_get())
        wipe_bytes(&static_cast<ThreadRecord*>(own)->rng, sizeof(RngState));
}

void module_unload() {
    if (!loaded.exchange(false))
        return;
    records_destroy();
    rng_reset_pools();
    process_key_forget();
    platform::lock_destroy();
}

} // namespace zul
