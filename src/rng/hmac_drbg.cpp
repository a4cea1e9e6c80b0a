#include "rng/hmac_drbg.h"

#include <algorithm>
#include <cstring>
#include <initializer_list>

#include "frame/wipe.h"
#include "hash/hmac.h"

namespace zul {

static_assert(sizeof DrbgState::key == kSha1Size && sizeof DrbgState::value == kSha1Size);

// next_value sets V = HMAC(K, V), with K given as a context that has absorbed it.
static void next_value(DrbgState& drbg, const HmacContext& keyed) {
    Wiped<HmacContext> hmac;
    *hmac = keyed;
    hmac_update(*hmac, drbg.value, sizeof drbg.value);
    hmac_final(*hmac, drbg.value);
}

// mix sets K = HMAC(K, V || step || provided) and V = HMAC(K, V).
static void mix(DrbgState& drbg, uint8_t step, std::initializer_list<Bytes> provided) {
    Wiped<HmacContext> hmac;
    hmac_init(*hmac, kDigestSha1, drbg.key, sizeof drbg.key);
    hmac_update(*hmac, drbg.value, sizeof drbg.value);
    hmac_update(*hmac, &step, 1);
    for (const Bytes& part : provided)
        hmac_update(*hmac, part.data(), part.size());
    hmac_final(*hmac, drbg.key);

    hmac_init(*hmac, kDigestSha1, drbg.key, sizeof drbg.key);
    next_value(drbg, *hmac);
}

// update is HMAC_DRBG_Update (10.1.2.2) with the provided data in parts.
static void update(DrbgState& drbg, std::initializer_list<Bytes> provided) {
    mix(drbg, 0, provided);
    if (std::any_of(provided.begin(), provided.end(), [](const Bytes& part) { return !part.empty(); }))
        mix(drbg, 1, provided);
}

void drbg_instantiate(DrbgState& drbg, Bytes entropy, Bytes nonce, Bytes personalisation) {
    memset(drbg.key, 0, sizeof drbg.key);
    memset(drbg.value, 1, sizeof drbg.value);
    update(drbg, {entropy, nonce, personalisation});
    drbg.reseedCounter = 1;
}

void drbg_reseed(DrbgState& drbg, Bytes entropy, const AdditionalInput& additional) {
    update(drbg, {entropy, additional});
    drbg.reseedCounter = 1;
}

void drbg_update(DrbgState& drbg, const AdditionalInput& additional) {
    update(drbg, {additional});
}

void drbg_generate(DrbgState& drbg, uint8_t* out, size_t size, const AdditionalInput& additional) {
    if (!additional.empty())
        update(drbg, {additional});

    if (size > 0) {
        Wiped<HmacContext> keyed;
        hmac_init(*keyed, kDigestSha1, drbg.key, sizeof drbg.key);
        while (size > 0) {
            next_value(drbg, *keyed);
            const size_t part = std::min(size, sizeof drbg.value);
            memcpy(out, drbg.value, part);
            out += part;
            size -= part;
        }
    }

    update(drbg, {additional});
    drbg.reseedCounter++;
}

} // namespace zul
