#pragma once
#include <cstddef>
#include <cstdint>
#include <span>

#include "frame/rng_state.h"

// HMAC_DRBG with SHA-1 (NIST SP 800-90A, 10.1.2) as operations on a plain state, without clock, pools and
// tests. The caller seeds the state and reseeds it in time.
namespace zul {

using Bytes = std::span<const uint8_t>;

// AdditionalInput is what a caller adds to a request. Only its first 20 bytes count. A null pointer
// stands for no input.
class AdditionalInput {
  public:
    static constexpr size_t kMaxSize = 20;

    AdditionalInput() = default;
    AdditionalInput(const void* data, size_t size)
        : bytes_(static_cast<const uint8_t*>(data),
                 data == nullptr ? 0 : (size < kMaxSize ? size : kMaxSize)) {}

    bool empty() const { return bytes_.empty(); }
    operator Bytes() const { return bytes_; }

  private:
    Bytes bytes_;
};

void drbg_instantiate(DrbgState& drbg, Bytes entropy, Bytes nonce, Bytes personalisation);
void drbg_reseed(DrbgState& drbg, Bytes entropy, const AdditionalInput& additional);
void drbg_update(DrbgState& drbg, const AdditionalInput& additional);

// drbg_generate fills out with size bytes and counts the request. out may be null if size is 0.
void drbg_generate(DrbgState& drbg, uint8_t* out, size_t size, const AdditionalInput& additional);

} // namespace zul
