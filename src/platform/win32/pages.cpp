#include <windows.h>

#include "platform/platform.h"

namespace zul::platform {

void* pages_take(size_t size) {
    return VirtualAlloc(nullptr, size, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
}

void pages_give(void* pages, size_t) {
    VirtualFree(pages, 0, MEM_RELEASE);
}

} // namespace zul::platform
