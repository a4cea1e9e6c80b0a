#include "rng/hmac_drbg.h"

#include <algorithm>
#include <cstring>
#include <initializer_list>

#include "frame/wipe.h"
#include "hash/sha1.h"
#include "rng/drbg_kernels.h"

namespace zul {

static_assert(sizeof DrbgState::value == kSha1Size && sizeof DrbgState::inner == sizeof Sha1Context::state);

namespace {

// Mac is HMAC(K, ...) of a message in parts.
class Mac {
  public:
    explicit Mac(const DrbgState& drbg) : drbg_(drbg) { resume(drbg.inner); }
    Mac& add(Bytes part) {
        sha1_update(*context_, part.data(), part.size());
        return *this;
    }
    void finish(uint8_t mac[kSha1Size]) {
        sha1_final(*context_, mac);
        resume(drbg_.outer);
        sha1_update(*context_, mac, kSha1Size);
        sha1_final(*context_, mac);
    }

  private:
    void resume(const uint32_t (&pad)[5]) {
        memcpy(context_->state, pad, sizeof pad);
        context_->length = Sha1Context::kBlockSize;
    }
    const DrbgState& drbg_;
    Wiped<Sha1Context> context_;
};

// absorb_pad gives the state of SHA-1 after the key's block in HMAC.
void absorb_pad(uint32_t (&state)[5], const uint8_t key[kSha1Size], uint8_t pad) {
    Secret<Sha1Context::kBlockSize> block;
    for (size_t i = 0; i < block.size(); i++)
        block[i] = i < kSha1Size ? key[i] ^ pad : pad;
    Wiped<Sha1Context> context;
    sha1_init(*context);
    sha1_update(*context, block.data(), block.size());
    memcpy(state, context->state, sizeof state);
}

void set_key(DrbgState& drbg, const uint8_t key[kSha1Size]) {
    absorb_pad(drbg.inner, key, 0x36);
    absorb_pad(drbg.outer, key, 0x5C);
}

void next_value(DrbgState& drbg) {
    Mac(drbg).add(drbg.value).finish(drbg.value);
}

// mix sets K = HMAC(K, V || step || provided) and V = HMAC(K, V).
void mix(DrbgState& drbg, uint8_t step, std::initializer_list<Bytes> provided) {
    Mac mac(drbg);
    mac.add(drbg.value).add({&step, 1});
    for (const Bytes& part : provided)
        mac.add(part);
    Secret<kSha1Size> key;
    mac.finish(key.data());
    set_key(drbg, key.data());
    next_value(drbg);
}

// update is HMAC_DRBG_Update (10.1.2.2) with the provided data in parts.
void update(DrbgState& drbg, std::initializer_list<Bytes> provided) {
    mix(drbg, 0, provided);
    if (std::any_of(provided.begin(), provided.end(), [](const Bytes& part) { return !part.empty(); }))
        mix(drbg, 1, provided);
}

void produce(DrbgState& drbg, uint8_t* out, size_t size, bool update) {
#if ZUL_X86_64
    if (sha1_has_shani()) {
        drbg_produce_shani(drbg, out, size, update);
        wipe_dead_stack(256); // not every compiler has registers for all of the key
        return;
    }
#endif
    drbg_produce_portable(drbg, out, size, update);
}

} // namespace

void drbg_produce_portable(DrbgState& drbg, uint8_t* out, size_t size, bool update) {
    while (size > 0) {
        next_value(drbg);
        const size_t part = std::min(size, sizeof drbg.value);
        memcpy(out, drbg.value, part);
        out += part;
        size -= part;
    }
    if (update)
        mix(drbg, 0, {});
}

void drbg_instantiate(DrbgState& drbg, Bytes entropy, Bytes nonce, Bytes personalisation) {
    constexpr uint8_t kFirstKey[kSha1Size] = {};
    set_key(drbg, kFirstKey);
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
    if (additional.empty()) {
        produce(drbg, out, size, true);
    } else {
        update(drbg, {additional});
        produce(drbg, out, size, false);
        update(drbg, {additional});
    }
    drbg.reseedCounter++;
}

} // namespace zul
