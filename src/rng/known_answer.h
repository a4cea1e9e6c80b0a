#pragma once
#include "rng/hmac_drbg.h"

namespace zul {

// The test vector of one run: the generator is instantiated and reseeded, and generates twice. The answer is
// the second output.
struct DrbgKnownAnswer {
    static constexpr size_t kSize = 80;
    uint8_t entropy[16];
    uint8_t nonce[8];
    uint8_t reseedEntropy[16];
    uint8_t returned[kSize];
};

extern const DrbgKnownAnswer kDrbgKnownAnswer;

bool drbg_reproduces(const DrbgKnownAnswer& answer);

} // namespace zul
