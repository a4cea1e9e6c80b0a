#pragma once
#include "ec/limbs.h"
#include "frame/wipe.h"

// Modular inversion in constant time by divsteps: D. J. Bernstein, B.-Y. Yang, "Fast constant-time gcd
// computation and modular inversion" (2019), with delta beginning at 1/2.
namespace zul {

namespace inverse_detail {

constexpr int kBatch = 62; // divsteps in one batch, bits of a signed limb
constexpr int64_t kLimbMask = (int64_t{1} << kBatch) - 1;

// The matrix of a batch, 2^62 times too large.
struct Transition {
    int64_t u, v, q, r;
};

// run_batch does 62 divsteps on the low bits of f and g; zeta is -(delta + 1/2).
constexpr int64_t run_batch(int64_t zeta, uint64_t f, uint64_t g, Transition& t) {
    uint64_t u = 1, v = 0, q = 0, r = 1;
    for (int i = 0; i < kBatch; i++) {
        // cppcheck-suppress shiftTooManyBitsSigned ; C++20 defines it: all bits are the sign
        uint64_t swap = value_barrier(static_cast<uint64_t>(zeta >> 63));
        const uint64_t isOdd = value_barrier(0 - (g & 1));
        // g += f, or g -= f where the two change places, if g is odd
        g += ((f ^ swap) - swap) & isOdd;
        q += ((u ^ swap) - swap) & isOdd;
        r += ((v ^ swap) - swap) & isOdd;
        swap &= isOdd;
        zeta = (zeta ^ static_cast<int64_t>(swap)) - 1;
        f += g & swap;
        u += q & swap;
        v += r & swap;
        g >>= 1;
        u <<= 1;
        v <<= 1;
    }
    t = {static_cast<int64_t>(u), static_cast<int64_t>(v), static_cast<int64_t>(q), static_cast<int64_t>(r)};
    return zeta;
}

template<size_t S>
using Signed = std::array<int64_t, S>;

template<size_t S, size_t N>
constexpr Signed<S> to_signed(const Limbs<N>& a) {
    Signed<S> result{};
    for (size_t i = 0; i < S; i++) {
        const size_t position = i * kBatch, limb = position / 64, shift = position % 64;
        uint64_t bits = limb < N ? a[limb] >> shift : 0;
        if (shift > 2 && limb + 1 < N)
            bits |= a[limb + 1] << (64 - shift);
        result[i] = static_cast<int64_t>(bits) & kLimbMask;
    }
    return result;
}

template<size_t S, size_t N>
constexpr void from_signed(Limbs<N>& result, const Signed<S>& a) {
    result = {};
    for (size_t i = 0; i < S; i++) {
        const size_t position = i * kBatch, limb = position / 64, shift = position % 64;
        if (limb < N)
            result[limb] |= static_cast<uint64_t>(a[i]) << shift;
        if (shift > 2 && limb + 1 < N)
            result[limb + 1] |= static_cast<uint64_t>(a[i]) >> (64 - shift);
    }
}

template<size_t S>
constexpr ZUL_ALWAYS_INLINE int64_t sign_mask(const Signed<S>& a) {
    return value_barrier(a[S - 1] >> 63);
}

// apply_fg replaces (f, g) by (u f + v g, q f + r g) / 2^62, which is exact.
template<size_t S>
constexpr void apply_fg(Signed<S>& f, Signed<S>& g, const Transition& t) {
    SignedDoubleLimb cf = 0, cg = 0;
    for (size_t i = 0; i < S; i++) {
        cf += static_cast<SignedDoubleLimb>(t.u) * f[i] + static_cast<SignedDoubleLimb>(t.v) * g[i];
        cg += static_cast<SignedDoubleLimb>(t.q) * f[i] + static_cast<SignedDoubleLimb>(t.r) * g[i];
        if (i > 0) {
            f[i - 1] = static_cast<int64_t>(cf) & kLimbMask;
            g[i - 1] = static_cast<int64_t>(cg) & kLimbMask;
        }
        cf >>= kBatch;
        cg >>= kBatch;
    }
    f[S - 1] = static_cast<int64_t>(cf);
    g[S - 1] = static_cast<int64_t>(cg);
}

// apply_de does the same to (d, e) modulo p: multiples of p make the division exact, and keep both between
// -2p and p. inverse is 1/p modulo 2^62.
template<size_t S>
constexpr void apply_de(Signed<S>& d, Signed<S>& e, const Transition& t, const Signed<S>& p,
                        uint64_t inverse) {
    const int64_t dSign = sign_mask(d), eSign = sign_mask(e);
    int64_t md = (t.u & dSign) + (t.v & eSign);
    int64_t me = (t.q & dSign) + (t.r & eSign);
    SignedDoubleLimb cd =
        static_cast<SignedDoubleLimb>(t.u) * d[0] + static_cast<SignedDoubleLimb>(t.v) * e[0];
    SignedDoubleLimb ce =
        static_cast<SignedDoubleLimb>(t.q) * d[0] + static_cast<SignedDoubleLimb>(t.r) * e[0];
    md -= static_cast<int64_t>((inverse * static_cast<uint64_t>(cd) + static_cast<uint64_t>(md)) &
                               static_cast<uint64_t>(kLimbMask));
    me -= static_cast<int64_t>((inverse * static_cast<uint64_t>(ce) + static_cast<uint64_t>(me)) &
                               static_cast<uint64_t>(kLimbMask));
    cd += static_cast<SignedDoubleLimb>(p[0]) * md;
    ce += static_cast<SignedDoubleLimb>(p[0]) * me;
    cd >>= kBatch;
    ce >>= kBatch;
    for (size_t i = 1; i < S; i++) {
        cd += static_cast<SignedDoubleLimb>(t.u) * d[i] + static_cast<SignedDoubleLimb>(t.v) * e[i] +
              static_cast<SignedDoubleLimb>(p[i]) * md;
        ce += static_cast<SignedDoubleLimb>(t.q) * d[i] + static_cast<SignedDoubleLimb>(t.r) * e[i] +
              static_cast<SignedDoubleLimb>(p[i]) * me;
        d[i - 1] = static_cast<int64_t>(cd) & kLimbMask;
        e[i - 1] = static_cast<int64_t>(ce) & kLimbMask;
        cd >>= kBatch;
        ce >>= kBatch;
    }
    d[S - 1] = static_cast<int64_t>(cd);
    e[S - 1] = static_cast<int64_t>(ce);
}

template<size_t S>
constexpr void add_masked(Signed<S>& a, const Signed<S>& p, int64_t mask) {
    int64_t carry = 0;
    for (size_t i = 0; i < S; i++) {
        const int64_t sum = a[i] + (p[i] & mask) + carry;
        a[i] = i + 1 < S ? sum & kLimbMask : sum;
        carry = sum >> kBatch;
    }
}

template<size_t S>
constexpr void negate_masked(Signed<S>& a, int64_t mask) {
    int64_t carry = 0;
    for (size_t i = 0; i < S; i++) {
        const int64_t sum = (a[i] ^ mask) - mask + carry;
        a[i] = i + 1 < S ? sum & kLimbMask : sum;
        carry = sum >> kBatch;
    }
}

} // namespace inverse_detail

// modular_inverse gives 1/a modulo the odd p of the given number of bits; a is below p, and the result 0 for
// 0. It wipes what it holds, as the inverse of a signature's secret number gives the key away.
template<size_t N>
constexpr void modular_inverse(Limbs<N>& result, const Limbs<N>& a, const Limbs<N>& p, size_t bits) {
    using namespace inverse_detail;
    constexpr size_t S = (64 * N + 2 + kBatch - 1) / kBatch;
    struct State {
        Signed<S> f, g, d, e;
    };
    const Signed<S> modulus = to_signed<S>(p);
    uint64_t inverse = 1;
    for (int i = 0; i < 6; i++)
        inverse *= 2 - p[0] * inverse;
    State state{modulus, to_signed<S>(a), {}, {1}};
    auto& [f, g, d, e] = state;
    int64_t zeta = -1;
    const size_t steps = (45907 * bits + 26313) / 19929;
    for (size_t done = 0; done < steps; done += kBatch) {
        Transition t{};
        zeta = run_batch(zeta, static_cast<uint64_t>(f[0]) | static_cast<uint64_t>(f[1]) << kBatch,
                         static_cast<uint64_t>(g[0]) | static_cast<uint64_t>(g[1]) << kBatch, t);
        apply_de(d, e, t, modulus, inverse);
        apply_fg(f, g, t);
    }
    // f is 1 or -1 now, and d the inverse with its sign, between -2p and p.
    add_masked(d, modulus, sign_mask(d));
    negate_masked(d, sign_mask(f));
    add_masked(d, modulus, sign_mask(d));
    from_signed(result, d);
    if (!__builtin_is_constant_evaluated())
        wipe_bytes(&state, sizeof state);
}

} // namespace zul
