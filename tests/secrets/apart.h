#pragma once
#include <cstddef>
#include <cstdint>

// A call runs on a stack of its own, which is all zeros before. Directly after its return the registers are
// kept.
namespace secrets {

struct Registers {
    static constexpr size_t kGeneral = 16, kExtended = 16 * 1024;
    static constexpr size_t kUpToAvx = 8 * kGeneral + 512 + 64 + 256; // without AVX-512
    alignas(64) uint64_t general[kGeneral];
    alignas(64) uint8_t extended[kExtended]; // as XSAVE writes them: x87, vectors, masks
};

constexpr size_t kApartStack = 1 << 20;

void apart_make();
uint8_t* apart_stack(); // its lowest byte
void run_apart(void (*function)(void*), void* argument, Registers* registers);

} // namespace secrets
