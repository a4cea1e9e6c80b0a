#include <sys/mman.h>

#include "platform/platform.h"

namespace zul::platform {

void* pages_take(size_t size) {
    void* pages = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (pages == MAP_FAILED)
        return nullptr;
#ifdef MADV_HUGEPAGE
    madvise(pages, size, MADV_HUGEPAGE); // access at random would miss the address cache each time
#endif
#ifdef MADV_DONTDUMP
    madvise(pages, size, MADV_DONTDUMP);
#endif
    return pages;
}

void pages_give(void* pages, size_t size) {
    munmap(pages, size);
}

} // namespace zul::platform
