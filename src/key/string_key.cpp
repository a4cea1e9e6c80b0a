#include "key/string_key.h"

#include <array>
#include <cstring>

#include "platform/platform.h"
#include "rng/rng.h"

namespace zul {
namespace {

constinit std::array<uint8_t, kStringKey> theKey{};
constinit bool isMade = false;

bool copy_made_key(Secret<kStringKey>& key) {
    const platform::LockGuard lock;
    if (isMade)
        memcpy(key.data(), theKey.data(), kStringKey);
    return isMade;
}

} // namespace

void string_key(Secret<kStringKey>& key) {
    while (!copy_made_key(key)) {
        // The generator takes the lock itself, so the bytes are drawn before it. Another thread may be first.
        Secret<kStringKey> drawn;
        rng_draw(drawn.data(), kStringKey);
        const platform::LockGuard lock;
        if (!isMade)
            memcpy(theKey.data(), drawn.data(), kStringKey);
        isMade = true;
    }
}

void string_key_forget() {
    const platform::LockGuard lock;
    wipe_bytes(theKey.data(), kStringKey);
    isMade = false;
}

} // namespace zul
