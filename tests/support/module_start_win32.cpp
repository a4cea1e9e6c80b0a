// The unit program holds the library's objects instead of its DLL, so nobody calls their entry point: a
// constructor does it at the start and a thread-local-storage callback for each thread that ends. Threads
// that begin are not announced: the tests count records, and GoogleTest has threads of its own that never
// end.
#include <windows.h>

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID reserved);

namespace {

bool started = false;

struct Starter {
    Starter() { started = DllMain(nullptr, DLL_PROCESS_ATTACH, nullptr) != FALSE; }
};
const Starter starter;

void NTAPI on_thread(PVOID, DWORD reason, PVOID) {
    if (started && reason == DLL_THREAD_DETACH)
        DllMain(nullptr, reason, nullptr);
}

} // namespace

// The linker gathers the pointers in these sections into the program's list of callbacks.
extern "C" const PIMAGE_TLS_CALLBACK zul_thread_callback;
extern "C" __attribute__((section(".CRT$XLY"), used)) const PIMAGE_TLS_CALLBACK zul_thread_callback =
    on_thread;
