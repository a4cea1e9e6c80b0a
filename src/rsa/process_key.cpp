#include "rsa/process_key.h"

#include <array>
#include <cstring>

#include "platform/platform.h"
#include "rng/rng.h"

namespace zul {
namespace {

using KeyBytes = std::array<uint8_t, kProcessKey>;

// The pattern that stands for a key not yet made.
constexpr KeyBytes kUnmade = [] {
    KeyBytes pattern{};
    pattern.fill(0xA5);
    return pattern;
}();
constinit KeyBytes theKey = kUnmade;

bool is_unmade(const uint8_t* key) {
    return memcmp(key, kUnmade.data(), kProcessKey) == 0;
}

bool copy_made_key(uint8_t* key) {
    const platform::LockGuard lock;
    memcpy(key, theKey.data(), kProcessKey);
    return !is_unmade(key);
}

} // namespace

void process_key(Secret<kProcessKey>& key) {
    while (!copy_made_key(key.data())) {
        // The generator takes the lock itself, so the bytes are drawn before it. Another thread may be first.
        Secret<kProcessKey> drawn;
        rng_draw(drawn.data(), kProcessKey);
        const platform::LockGuard lock;
        if (theKey == kUnmade)
            memcpy(theKey.data(), drawn.data(), kProcessKey);
    }
}

void process_key_forget() {
    const platform::LockGuard lock;
    theKey = kUnmade;
}

} // namespace zul
