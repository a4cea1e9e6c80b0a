#pragma once
#include <cstddef>

#include "hash/sha1.h"
#include "platform/platform.h"

namespace zul {

// EntropyCollector counts what a user does and enters it, with its time, into the entropy pools.
//
// A key counts each time. A move of the mouse counts if it has led to another place and comes more than 100
// milliseconds after the one that counted last: one sweep makes dozens of readings that say little new.
class EntropyCollector final : public platform::EntropyEvents {
  public:
    explicit EntropyCollector(unsigned wanted) : wanted_(wanted) { sha1_init(all_); }
    EntropyCollector(const EntropyCollector&) = delete;
    EntropyCollector& operator=(const EntropyCollector&) = delete;
    ~EntropyCollector();

    int key(uint32_t code) override;
    int mouse(int32_t x, int32_t y, uint32_t tick) override;
    int percentage() const { return static_cast<int>(count_ * 100 / wanted_); }

    // digest gives the SHA-1 of all events and ends the collection.
    void digest(uint8_t out[kSha1Size]) { sha1_final(all_, out); }

  private:
    void enter(uint32_t code, uint32_t tick);

    const unsigned wanted_;
    unsigned count_ = 0;
    bool hasPlace_ = false, hasMoved_ = false;
    int32_t x_ = 0, y_ = 0;
    uint32_t lastMove_ = 0;
    Sha1Context all_;
};

} // namespace zul
