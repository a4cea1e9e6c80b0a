#include <windows.h>

#include "platform/platform.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID reserved) {
    switch (reason) {
    case DLL_PROCESS_ATTACH:
        return zul::module_load(instance);
    case DLL_THREAD_ATTACH:
        return zul::module_thread_attach();
    case DLL_THREAD_DETACH:
        zul::module_thread_detach();
        break;
    case DLL_PROCESS_DETACH:
        if (reserved == nullptr) // the module is freed, or has refused to load
            zul::module_unload();
        else
            zul::module_exit();
        break;
    default:
        break;
    }
    return TRUE;
}
