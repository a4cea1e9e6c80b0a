#include "rsa/process_key.h"

#include <cstring>

#include "platform/platform.h"
#include "rng/rng.h"

namespace zul {
namespace {

constinit TdesKey theKey{};
constinit bool isMade = false;

bool copy_made_key(TdesKey& key) {
    const platform::LockGuard lock;
    if (isMade)
        memcpy(&key, &theKey, sizeof key);
    return isMade;
}

} // namespace

void process_key(Wiped<TdesKey>& key) {
    while (!copy_made_key(*key)) {
        // The generator takes the lock itself, so the bytes are drawn before it. Another thread may be first.
        Secret<sizeof theKey.bytes> drawn;
        rng_draw(drawn.data(), drawn.size());
        const platform::LockGuard lock;
        if (!isMade)
            tdes_set_key(theKey, drawn.data());
        isMade = true;
    }
}

void process_key_forget() {
    const platform::LockGuard lock;
    wipe_bytes(&theKey, sizeof theKey);
    isMade = false;
}

} // namespace zul
