#pragma once
#include <cstddef>
#include <cstdint>

#include "frame/thread_record.h"
#include "platform/platform.h"
#include "rng/pools.h"

// The process's entropy pools behind the process-wide lock, and the readings that feed them (rng_stir).
//
// Every call into the library stirs, so a cheap stir takes no lock. The thread stages the readings of its
// last 512 calls in its own state. It enters them together: when the state is full, when a reseed may be due,
// with a fuller stir and at its end. Entering visits every pool, whose memory may be in another processor's
// cache: a batch costs a few nanoseconds per call, single entries would make two threads slower than one. A
// thread's own readings are always entered before it is seeded.
namespace zul {

// OwnGenerator gives the calling thread's generator. The one that threads share after memory ran out stays
// locked until the object's end.
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

// accumulator_stir is rng_stir for a caller that holds the OwnGenerator.
void accumulator_stir(RngState& state, int option);

// accumulator_may_yield tells, without the lock and a clock, whether a reseed that is not forced may be due
// to a thread that has just stirred.
bool accumulator_may_yield(const RngState& state);

// accumulator_gather enters the staged readings and drains the pools if a reseed is due or forced. It returns
// the number of bytes written, 0 if no reseed is due.
size_t accumulator_gather(RngState& state, bool force, uint8_t out[EntropyPools::kMaxYield]);

// next_personalisation returns a different number for each instantiation in this process.
uint32_t next_personalisation();

} // namespace zul
