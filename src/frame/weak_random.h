#pragma once
#include <cstdint>
#include <random>

#include "platform/platform.h"

namespace zul {

// WeakRandom makes bytes that only have to differ from run to run: fillings, test messages, witnesses. Do not
// use it for secrets. Each object is seeded from the clocks. It does not call rand(), which would disturb the
// caller's sequence.
class WeakRandom {
  public:
    WeakRandom()
        : engine_(static_cast<uint32_t>(platform::system_time() / 10'000'000) ^ platform::tick_count()) {}
    uint8_t byte() { return static_cast<uint8_t>(engine_() >> 8); }

  private:
    std::minstd_rand engine_;
};

} // namespace zul
