#include <dlfcn.h>

#include "platform/platform.h"

namespace {

__attribute__((constructor)) void on_load() {
    Dl_info info{};
    void* base = nullptr;
    if (dladdr(reinterpret_cast<void*>(&on_load), &info) != 0)
        base = info.dli_fbase;
    // A constructor cannot make dlopen fail, so a refused load ends the process.
    if (!zul::module_load(base))
        zul::platform::end_process(1);
}

// The module is linked to stay in the process once loaded, because a thread that ends runs its code however
// late. So this is the end of the process, whose other threads may be in the middle of a call.
__attribute__((destructor)) void on_exit() {
    zul::module_exit();
}

} // namespace
