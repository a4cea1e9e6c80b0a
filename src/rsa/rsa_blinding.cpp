#include "rsa/rsa_blinding.h"

#include <algorithm>
#include <cstring>

#include "frame/err.h"
#include "frame/memory.h"
#include "rng/rng.h"
#include "rsa/rsa_operation.h"
#include "zulcore.h"

namespace zul {
namespace {

// random_below gives a number from 1 to below n.
void random_below(MT number, const RsaKey& key) {
    SecretBuffer bytes(key.bytes());
    do {
        for (size_t done = 0; done < bytes.size(); done += kMaxRandomRequest)
            rng_draw(bytes.data() + done, std::min(bytes.size() - done, kMaxRandomRequest));
        mtConvFromOctets(number, bytes.data(), bytes.size());
        mtModulo(number, number, key.n);
    } while (mtIsZero(number) != 0);
}

// A random r and its inverse. The inversion takes a time that depends on its operand, so it inverts r times a
// second random number.
bool make_pair(MT r, MT inverse, const RsaKey& key) {
    for (int attempt = 0; attempt < 8; attempt++) {
        BigInt mask, product, productInverse;
        random_below(r, key);
        random_below(mask, key);
        mtModMult(product, r, mask, key.n);
        if (mtIsZero(product) == 0 && mtModInv(productInverse, product, key.n) == 0) {
            mtModMult(inverse, productInverse, mask, key.n);
            return true;
        }
    }
    return false;
}

bool run(const RsaKey& key, uint8_t* out, const uint8_t* in) {
    const size_t size = key.bytes();
    BigInt r, inverse, input, factor, product, output;
    mtConvFromOctets(input, in, size);
    if (mtCompare(input, key.n) >= 0 || !make_pair(r, inverse, key))
        return false;
    SecretBuffer block(size);
    mtModExp(factor, r, key.e, key.n);
    mtModMult(product, input, factor, key.n);
    mtConvToOctets(product, block.data(), size);
    size_t length = 0;
    if (rsaPrivate(&key, block.data(), &length, block.data(), size) != 0)
        return false;
    mtConvFromOctets(product, block.data(), size);
    mtModMult(output, product, inverse, key.n);
    mtConvToOctets(output, out, size);
    return rsaPublic(&key, block.data(), &length, out, size) == 0 && memcmp(block.data(), in, size) == 0;
}

} // namespace

int rsa_private_blinded(const RsaKey& key, uint8_t* out, const uint8_t* in) {
    if ((key.flags & kRsaPublic) != 0 && (key.flags & kRsaPrivate) != 0 && run(key, out, in))
        return 0;
    wipe_bytes(out, key.bytes());
    return err_fail(BAD_KEY_ERROR, "The RSA key's values contradict each other");
}

} // namespace zul
