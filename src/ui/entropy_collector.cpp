#include "ui/entropy_collector.h"

#include "frame/wipe.h"
#include "rng/rng.h"

namespace zul {

static constexpr uint32_t kMinMoveInterval = 100; // milliseconds
static constexpr uint32_t kMoveCode = 0xFFFFFFFF; // no key has this code

EntropyCollector::~EntropyCollector() {
    wipe_bytes(&all_, sizeof all_);
}

void EntropyCollector::enter(uint32_t code, uint32_t tick) {
    struct Event {
        uint64_t time;
        uint32_t tick, code;
        int32_t x, y;
    };
    static_assert(sizeof(Event) == 24 && sizeof(Event) <= EntropyPools::kMaxEvent);
    Wiped<Event> event;
    *event = {platform::precise_ticks(), tick, code, x_, y_};
    sha1_update(all_, &*event, sizeof(Event));
    rng_add_event(EntropySource::user, &*event, sizeof(Event));
    if (count_ < wanted_)
        count_++;
}

int EntropyCollector::key(uint32_t code) {
    enter(code, platform::tick_count());
    return percentage();
}

int EntropyCollector::mouse(int32_t x, int32_t y, uint32_t tick) {
    const bool moved = hasPlace_ && (x != x_ || y != y_);
    if (!hasPlace_) { // the first position is no move
        hasPlace_ = true;
        x_ = x;
        y_ = y;
    }
    if (moved && (!hasMoved_ || tick - lastMove_ > kMinMoveInterval)) {
        hasMoved_ = true;
        lastMove_ = tick;
        x_ = x;
        y_ = y;
        enter(kMoveCode, tick);
    }
    return percentage();
}

} // namespace zul
