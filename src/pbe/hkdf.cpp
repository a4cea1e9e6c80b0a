#include "pbe/hkdf.h"

#include <algorithm>

#include "frame/wipe.h"
#include "hash/hmac.h"

namespace zul {

void hkdf(uint8_t* out, size_t outLen, int hashAlg, const void* key, size_t keyLen, const void* salt,
          size_t saltLen, const void* info, size_t infoLen) {
    Secret<kMaxDigestSize> digest;
    Wiped<HmacContext> keyed, mac;
    hmac_init(*mac, hashAlg, salt, saltLen); // an empty salt is a block of zeros here too
    hmac_update(*mac, key, keyLen);
    const auto length = static_cast<size_t>(hmac_final(*mac, digest.data()));

    hmac_init(*keyed, hashAlg, digest.data(), length);
    for (uint8_t index = 1; outLen != 0; index++) {
        *mac = *keyed;
        if (index != 1)
            hmac_update(*mac, digest.data(), length);
        hmac_update(*mac, info, infoLen);
        hmac_update(*mac, &index, sizeof index);
        hmac_final(*mac, digest.data());
        const size_t part = std::min(outLen, length);
        memcpy(out, digest.data(), part);
        out += part;
        outLen -= part;
    }
}

} // namespace zul
