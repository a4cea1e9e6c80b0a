#pragma once
#include <cstddef>
#include <cstdint>

#include "frame/thread_record.h"
#include "platform/platform.h"
#include "rng/pools.h"

// The process's entropy pools behind the process-wide lock, and the readings that feed them (rng_stir).
//
// Every call into the library stirs, so a stir takes no lock: the thread keeps the readings of its last 256
// calls in its own state and enters them together when that room is full, before it gathers, with a fuller
// stir and at its end. Entering them visits every pool, whose memory another processor may have had last: in
// batches that costs a call a few nanoseconds, one by one it would make two threads slower than one. What a
// thread holds back is never missing from its own seed, for which it is entered first.
namespace zul {

// OwnGenerator is the calling thread's generator while it is in use: where memory ran out it is shared, and
// locked for so long.
class OwnGenerator {
  public:
    OwnGenerator() : state_(*rng_state()), isShared_(is_shared(&state_)) {
        if (isShared_)
            platform::lock_enter(platform::Lock::generator);
    }
    OwnGenerator(const OwnGenerator&) = delete;
    OwnGenerator& operator=(const OwnGenerator&) = delete;
    ~OwnGenerator() {
        if (isShared_)
            platform::lock_leave(platform::Lock::generator);
    }
    RngState& operator*() const { return state_; }

  private:
    RngState& state_;
    const bool isShared_;
};

// accumulator_stir is rng_stir for a generator that the caller has already.
void accumulator_stir(RngState& state, int option);

// accumulator_gather enters what the thread holds back and drains the pools if a reseed is due or forced; the
// bytes written, 0 if it is not due.
size_t accumulator_gather(RngState& state, bool force, uint8_t out[EntropyPools::kMaxYield]);

// next_personalisation gives a number that no other instantiation of this process has.
uint32_t next_personalisation();

} // namespace zul
