#pragma once
#include <cstddef>
#include <cstdint>

#include "frame/rng_state.h"
#include "rng/pools.h"

// The process's entropy pools behind the process-wide lock, and the readings that feed them (rng_stir).
//
// Every call into the library stirs, so a stir takes no lock: the thread keeps the readings of its last 16
// calls in its own state and enters them together when that room is full, before it gathers, with a fuller
// stir and at its end. What one thread holds back is never missing where it would count: the thread's own
// gather comes after it.
namespace zul {

// accumulator_gather enters what the thread holds back and drains the pools if a reseed is due or forced; the
// bytes written, 0 if it is not due.
size_t accumulator_gather(RngState& state, bool force, uint8_t out[EntropyPools::kMaxYield]);

// next_personalisation gives a number that no other instantiation of this process has.
uint32_t next_personalisation();

// add_system_randomness adds 32 bytes from the operating system's generator, or nothing if that fails.
void add_system_randomness();

} // namespace zul
