#include <windows.h>
#include <atomic>

#include "platform/platform.h"

namespace zul::platform {

static std::atomic<DWORD> slotIndex{TLS_OUT_OF_INDEXES};

// The loader reports the end of a thread (load.cpp), so the slot needs no callback.
bool slot_create(void (*)(void* value)) {
    if (slotIndex == TLS_OUT_OF_INDEXES)
        slotIndex = TlsAlloc();
    return slotIndex != TLS_OUT_OF_INDEXES;
}

void slot_destroy() {
    const DWORD index = slotIndex.exchange(TLS_OUT_OF_INDEXES);
    if (index != TLS_OUT_OF_INDEXES)
        TlsFree(index);
}

void* slot_get() {
    const DWORD index = slotIndex.load(std::memory_order_acquire);
    if (index == TLS_OUT_OF_INDEXES)
        return nullptr;
    // TlsGetValue clears the system's last error, which belongs to the caller of the library.
    const DWORD lastError = GetLastError();
    void* value = TlsGetValue(index);
    SetLastError(lastError);
    return value;
}

bool slot_set(void* value) {
    const DWORD index = slotIndex;
    return index != TLS_OUT_OF_INDEXES && TlsSetValue(index, value) != 0;
}

} // namespace zul::platform
