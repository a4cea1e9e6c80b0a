// A program that holds the library's objects instead of the module has no loader to call on it, and nothing
// sealed to test: it starts them itself. Where the system does not announce the end of threads to the slot, a
// thread-local-storage callback does. Threads that begin are not announced: the tests count records, and
// GoogleTest has threads of its own that never end.
#include "module/module.h"
#include "platform/platform.h"

namespace {

[[maybe_unused]] const bool started = zul::module_start(nullptr);

} // namespace

#ifdef _WIN32
#include <windows.h>

namespace {

void NTAPI on_thread(PVOID, DWORD reason, PVOID) {
    if (started && reason == DLL_THREAD_DETACH)
        zul::module_thread_detach();
}

} // namespace

// The linker gathers the pointers in these sections into the program's list of callbacks.
extern "C" const PIMAGE_TLS_CALLBACK zul_thread_callback;
extern "C" __attribute__((section(".CRT$XLY"), used)) const PIMAGE_TLS_CALLBACK zul_thread_callback =
    on_thread;
#endif
