#include "rsa/mgf1.h"

#include <algorithm>

#include "frame/wipe.h"
#include "hash/digest.h"

namespace zul {

void mgf1_xor(uint8_t* target, size_t length, const uint8_t* seed, size_t seedLen, int algorithm) {
    Wiped<DigestContext> seeded, context;
    digest_init(*seeded, algorithm);
    digest_update(*seeded, seed, seedLen);
    Secret<kMaxDigestSize> digest;
    const size_t step = digest_length(algorithm);
    uint32_t counter = 0;
    for (size_t done = 0; done < length; done += step, counter++) {
        const uint8_t suffix[4] = {static_cast<uint8_t>(counter >> 24), static_cast<uint8_t>(counter >> 16),
                                   static_cast<uint8_t>(counter >> 8), static_cast<uint8_t>(counter)};
        *context = *seeded;
        digest_update(*context, suffix, sizeof suffix);
        digest_final(*context, digest.data());
        const size_t n = std::min(step, length - done);
        for (size_t i = 0; i < n; i++)
            target[done + i] ^= digest[i];
    }
}

} // namespace zul
