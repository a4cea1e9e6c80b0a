#pragma once
#include <cstddef>

namespace zul {

// The allocation seam for tests: refuse is asked before each allocation and makes it fail; freed sees every
// block just before it goes back to the system. Not exported by the module.
struct MemoryHooks {
    bool (*refuse)(size_t size) = nullptr;
    void (*freed)(void* block) = nullptr;
};

void memory_set_hooks(MemoryHooks hooks);

} // namespace zul
