#pragma once
// Blocks of memory that end at a page which nobody may touch: one byte read or written too far ends the
// process. Their lengths are any, so their beginnings are at odd addresses.
#include <cstddef>
#include <cstdint>

#ifdef _WIN32
#include <windows.h>
#else
#include <sys/mman.h>
#endif

namespace endurance {

constexpr size_t kGuardPage = 4096;
constexpr size_t kGuardedRoom = 32 * kGuardPage;

class GuardedBlock {
  public:
    GuardedBlock() {
#ifdef _WIN32
        base_ = static_cast<uint8_t*>(
            VirtualAlloc(nullptr, kGuardedRoom + 2 * kGuardPage, MEM_RESERVE, PAGE_NOACCESS));
        VirtualAlloc(base_ + kGuardPage, kGuardedRoom, MEM_COMMIT, PAGE_READWRITE);
#else
        base_ = static_cast<uint8_t*>(
            mmap(nullptr, kGuardedRoom + 2 * kGuardPage, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
        mprotect(base_ + kGuardPage, kGuardedRoom, PROT_READ | PROT_WRITE);
#endif
    }
    GuardedBlock(const GuardedBlock&) = delete;
    GuardedBlock& operator=(const GuardedBlock&) = delete;

    // at_end gives the last bytes before the page behind, at_begin the first ones after the page in front.
    uint8_t* at_end(size_t size) {
        return base_ + kGuardPage + kGuardedRoom - size;
    }
    uint8_t* at_begin() {
        return base_ + kGuardPage;
    }

  private:
    uint8_t* base_; // stays until the end of the process
};

} // namespace endurance
