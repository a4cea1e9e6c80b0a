#include <openssl/bn.h>

#include "bignum/mt.h"
#include "peer_support.h"

// Integers: sums, products, remainders, powers, inverses and divisors are those of libcrypto. The first bytes
// choose the kernels, the lengths of three numbers, and runs of bits of one value in them, where carries run.

using namespace zul;
using fuzz::Bytes;
using fuzz::require;

namespace {

using Number = fuzz::Handle<BIGNUM, BN_free>;

struct Pair {
    BigInt ours;
    Number theirs;

    explicit Pair(const Bytes& bytes)
        : theirs(BN_bin2bn(bytes.data(), static_cast<int>(bytes.size()), nullptr)) {
        mtConvFromOctets(ours, bytes.data(), bytes.size());
    }
};

void require_same(const MtNumber* ours, const BIGNUM* theirs) {
    Bytes a(static_cast<size_t>(BN_num_bytes(theirs)) + 1), b(a.size());
    require(BN_bn2binpad(theirs, b.data(), static_cast<int>(b.size())) >= 0);
    require(mtConvToOctets(ours, nullptr, 0) <= a.size());
    mtConvToOctets(ours, a.data(), a.size());
    require(a == b);
}

Bytes take(const uint8_t*& data, size_t& left, uint8_t size, uint8_t form) {
    Bytes bytes(size % 160);
    for (uint8_t& b : bytes) {
        b = left > 0 ? *data : 0;
        if (left > 0) {
            data++;
            left--;
        }
    }
    // Runs of ones or zeros within the number.
    for (size_t i = form & 0x0F; i < bytes.size() && i < size_t{form & 0x0Fu} * 5u; i++)
        bytes[i] = (form & 0x80) != 0 ? 0xFF : (form & 0x40) != 0 ? 0 : bytes[i];
    return bytes;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 8)
        return 0;
    static BN_CTX* const workspace = BN_CTX_new();
    const uint8_t* at = data + 7;
    size_t left = size - 7;
    fuzz::hide_features(data[0]);
    Pair x(take(at, left, data[1], data[2])), y(take(at, left, data[3], data[4])),
        m(take(at, left, data[5], data[6]));
    BigInt w, v;
    const Number a(BN_new());

    mtMultiply(w, x.ours, y.ours);
    require(BN_mul(a.get(), x.theirs.get(), y.theirs.get(), workspace) == 1);
    require_same(w, a.get());
    require((mtCompare(x.ours, y.ours) > 0) == (BN_cmp(x.theirs.get(), y.theirs.get()) > 0));
    mtGcd(w, x.ours, y.ours);
    require(BN_gcd(a.get(), x.theirs.get(), y.theirs.get(), workspace) == 1);
    require_same(w, a.get());
    if (BN_is_zero(m.theirs.get()))
        return 0;
    mtModulo(w, x.ours, m.ours);
    require(BN_mod(a.get(), x.theirs.get(), m.theirs.get(), workspace) == 1);
    require_same(w, a.get());
    mtModMult(w, x.ours, y.ours, m.ours);
    require(BN_mod_mul(a.get(), x.theirs.get(), y.theirs.get(), m.theirs.get(), workspace) == 1);
    require_same(w, a.get());

    if (BN_is_one(m.theirs.get()))
        return 0;
    mtModulo(v, x.ours, m.ours);
    mtModExp(w, v, y.ours, m.ours);
    require(BN_mod_exp(a.get(), x.theirs.get(), y.theirs.get(), m.theirs.get(), workspace) == 1);
    require_same(w, a.get());
    if (mtIsZero(v) != 1) {
        const bool hasInverse = mtModInv(w, v, m.ours) == 0;
        const bool theirs = BN_mod_inverse(a.get(), x.theirs.get(), m.theirs.get(), workspace) != nullptr;
        require(hasInverse == theirs);
        if (theirs)
            require_same(w, a.get());
    }
    return 0;
}
