#include "rsa/rsa_blinding.h"

#include "frame/err.h"
#include "frame/memory.h"
#include "rng/rng.h"
#include "rsa/rsa_operation.h"
#include "rsa/short_inverse.h"
#include "zulcore.h"

namespace zul {
namespace {

// run blinds with a random odd number of 256 bits, which nobody guesses. Its inverse takes little time.
bool run(const RsaKey& key, uint8_t* out, const uint8_t* in) {
    BigInt input, factor, inverse, blinded, power, output;
    mtConvFromOctets(input, in, key.bytes());
    if (mtCompare(input, key.n) >= 0)
        return false;
    Secret<sizeof(ShortFactor)> bytes;
    rng_draw(bytes.data(), bytes.size());
    bytes[0] |= 0x80;
    bytes[bytes.size() - 1] |= 1;
    Wiped<ShortFactor> r;
    limbs_read(*r, bytes.data(), bytes.size());
    short_inverse(inverse, *r, key.n);

    mtConvFromOctets(factor, bytes.data(), bytes.size());
    mtModulo(factor, factor, key.n);
    mtModExp(factor, factor, key.e, key.n);
    mtModMult(blinded, input, factor, key.n);
    if (!rsa_private_unchecked(power, blinded, key))
        return false;
    mtModMult(output, power, inverse, key.n);
    mtConvToOctets(output, out, key.bytes());
    mtModExp(power, output, key.e, key.n);
    return mtIsEqual(power, input) != 0;
}

// A number that shares a factor with a small n has no inverse.
constexpr int kAttempts = 8;

} // namespace

int rsa_private_blinded(const RsaKey& key, uint8_t* out, const uint8_t* in) {
    if ((key.flags & kRsaPublic) != 0 && (key.flags & kRsaPrivate) != 0) {
        for (int attempt = 0; attempt < kAttempts; attempt++) {
            if (run(key, out, in))
                return 0;
        }
    }
    wipe_bytes(out, key.bytes());
    return err_fail(BAD_KEY_ERROR, "The RSA key's values contradict each other");
}

} // namespace zul
