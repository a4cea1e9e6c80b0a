#pragma once
#include <cstddef>
#include <cstdint>

#include "frame/wipe.h"

// Poly1305 (RFC 8439, 2.5).
namespace zul {

constexpr size_t kPoly1305Block = 16, kPoly1305Tag = 16, kPoly1305Key = 32;

// A sum in progress, of data in whole blocks but for its end. It wipes itself.
class Poly1305 {
  public:
    explicit Poly1305(const uint8_t* key);

    // absorb takes data whose last part, if below a block, is filled up with zeros, as ChaCha20-Poly1305 has
    // it.
    void absorb_padded(const uint8_t* data, size_t size);
    // absorb_last takes the end of a plain message, of any length.
    void absorb_last(const uint8_t* data, size_t size);
    void finish(uint8_t* tag);

  private:
    void absorb(const uint8_t* data, size_t blocks, uint64_t highBit);

    struct State {
        uint64_t h[3], r[3], pad[2]; // 44, 44 and 42 bits
    };
    Wiped<State> state_;
};

} // namespace zul
