#pragma once
#include <cstddef>
#include <cstdint>

namespace zul {

// The working state of one HMAC_DRBG with SHA-1.
struct DrbgState {
    uint32_t inner[5], outer[5]; // K, as the two digests of HMAC have absorbed it
    uint8_t value[20];           // V
    uint32_t reseedCounter;      // 0: not yet instantiated
};

// The readings of the thread's last fuller stir.
struct SlowReadings {
    bool taken, hasDisk, hasPower, hasActivity;
    uint32_t ticks; // when they were taken
    uint32_t disk, power;
    uint8_t activity[20];
};

// RngState is one thread's part of the random generator: a plain structure that is valid when it is all zero,
// so that the thread's record can hold it without knowing the generator.
struct RngState {
    DrbgState drbg;
    uint8_t continuousBlock[8]; // what the next output must not repeat
    uint32_t forkGeneration;    // of the process that instantiated the generator

    // Readings of the last calls, on their way to the shared pools (see rng/accumulator.h).
    static constexpr uint32_t kStagedCalls = 512;
    uint32_t stagedTime[kStagedCalls];
    uint32_t stagedTicks[kStagedCalls];
    uint32_t stagedMemory[kStagedCalls];
    uint32_t stagedCalls;
    uint32_t readTicks;  // when the memory status and the system time were last read
    uint32_t memory;     // the condensed memory status; 0 before the first reading
    uint32_t time;       // the low part of the system time, less that of the processor's cycle counter
    uint64_t systemTime; // when readTicks was new
    SlowReadings slow;
};

} // namespace zul
