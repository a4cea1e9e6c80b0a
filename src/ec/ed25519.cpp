#include "ec/ed25519.h"

#include <cstring>

#include "ec/edwards.h"
#include "ec/non_adjacent_form.h"
#include "ec/signed_digit.h"
#include "ec/table_lookup.h"
#include "frame/wipe.h"

namespace zul {
namespace {

using F = Field25519;
using Scalar = Limbs<4>;

// The lists are flat.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmissing-braces"
constexpr EdwardsBaseTable kBaseTable = {{
#include "ec/edwards_base.inc"
}};
constexpr EdwardsBaseOdd kBaseOdd = {{
#include "ec/edwards_base_odd.inc"
}};
#pragma GCC diagnostic pop

constexpr char kDomain[] = "SigEd25519 no Ed25519 collisions"; // RFC 8032, 2
constexpr uint8_t kPreHashedDomain[] = {1, 0};                 // the flag, and a context of no length

// scalar_reduce gives a number of 64 bytes modulo L.
void scalar_reduce(Scalar& result, const uint8_t* bytes) {
    Wiped<Scalar> low, high;
    *low = read_little_endian(bytes);
    *high = read_little_endian(bytes + 32);
    // A product with 2^512 or 2^256 modulo L, divided by 2^256.
    montgomery_multiply(*high, *high, kEdwardsOrder.square, kEdwardsOrder);
    montgomery_multiply(*low, *low, kEdwardsOrder.one, kEdwardsOrder);
    montgomery_add(result, *high, *low, kEdwardsOrder.p);
}

void encode(uint8_t* bytes, const EdwardsPoint& point) {
    Wiped<F::Element> inverse; // Z tells about the scalar
    F::Element x, y;
    F::invert(*inverse, point.z);
    F::multiply(x, point.x, *inverse);
    F::multiply(y, point.y, *inverse);
    write_little_endian(bytes, F::to_integer(y));
    bytes[31] = static_cast<uint8_t>(bytes[31] | (F::to_integer(x)[0] & 1) << 7);
}

bool equal(const F::Element& a, const F::Element& b) {
    F::Element difference;
    F::subtract(difference, a, b);
    return F::is_zero(difference);
}

// root_of_ratio gives x with x^2 = u/v if there is one (RFC 8032, 5.1.3).
bool root_of_ratio(F::Element& x, const F::Element& u, const F::Element& v) {
    F::Element v3, power, check;
    F::square(v3, v);
    F::multiply(v3, v3, v);
    F::square(power, v3);
    F::multiply(power, power, v);
    F::multiply(power, power, u); // u v^7
    // To (p - 5)/8 = 2^252 - 3, from 2^250 - 1 in the usual chain.
    F::Element t, s;
    const auto square_times = [](F::Element& r, const F::Element& a, int count) {
        F::square(r, a);
        while (--count > 0)
            F::square(r, r);
    };
    F::Element first = power, eleven, five;
    F::square(t, first);
    square_times(s, t, 2);
    F::multiply(s, s, first); // 9
    F::multiply(eleven, s, t);
    F::square(t, eleven);
    F::multiply(five, t, s); // 2^5 - 1
    square_times(t, five, 5);
    F::multiply(five, t, five); // 2^10 - 1
    square_times(t, five, 10);
    F::multiply(s, t, five); // 2^20 - 1
    square_times(t, s, 20);
    F::multiply(t, t, s); // 2^40 - 1
    square_times(t, t, 10);
    F::multiply(five, t, five); // 2^50 - 1
    square_times(t, five, 50);
    F::multiply(s, t, five); // 2^100 - 1
    square_times(t, s, 100);
    F::multiply(t, t, s); // 2^200 - 1
    square_times(t, t, 50);
    F::multiply(t, t, five); // 2^250 - 1
    square_times(t, t, 2);
    F::multiply(power, t, first); // 2^252 - 3
    F::multiply(x, power, v3);
    F::multiply(x, x, u);

    F::square(check, x);
    F::multiply(check, check, v);
    if (equal(check, u))
        return true;
    F::multiply(x, x, kRootOfMinusOne);
    F::square(check, x);
    F::multiply(check, check, v);
    return equal(check, u);
}

// decode takes the canonical encoding of a point alone.
bool decode(EdwardsPoint& point, const uint8_t* bytes) {
    Scalar y = read_little_endian(bytes);
    const uint64_t sign = y[3] >> 63;
    y[3] &= 0x7FFFFFFFFFFFFFFF;
    if (!limbs_below(y, F::kPrime))
        return false;
    point.y = F::from_integer(y);
    point.z = F::kOne;
    F::Element u, v;
    F::square(u, point.y);
    F::multiply(v, u, kEdwardsD);
    F::subtract(u, u, F::kOne);
    F::add(v, v, F::kOne);
    if (!root_of_ratio(point.x, u, v))
        return false;
    if (F::is_zero(point.x) && sign != 0)
        return false;
    if ((F::to_integer(point.x)[0] & 1) != sign)
        F::subtract(point.x, F::Element{}, point.x);
    F::multiply(point.t, point.x, point.y);
    return true;
}

bool has_small_order(EdwardsPoint point) {
    for (int i = 0; i < 3; i++)
        edwards_double(point, point);
    return F::is_zero(point.x); // 8P = O; (0, -1) has doubled to O before
}

// base_multiply gives scalar times the base point, in constant time; the scalar is below L.
void base_multiply(EdwardsPoint& result, const Scalar& scalar) {
    struct State {
        EdwardsAffineAddend entry, opposite;
        EdwardsPoint sum;
    };
    Wiped<State> owner;
    State& s = *owner;
    s.sum = edwards_identity();
    for (size_t offset = kEdwardsStride; offset-- > 0;) {
        for (size_t window = offset; window < kEdwardsWindows; window += kEdwardsStride) {
            const SignedDigit digit = signed_digit<kEdwardsWindow>(scalar, window);
            table_lookup(s.entry, kBaseTable[window / kEdwardsStride], digit.magnitude);
            const uint64_t isZero = ~limb_mask(digit.magnitude) & 1;
            s.entry.sum[0] |= isZero;
            s.entry.difference[0] |= isZero;
            edwards_negate(s.opposite, s.entry);
            limbs_select(s.entry.sum, digit.isNegative, s.opposite.sum, s.entry.sum);
            limbs_select(s.entry.difference, digit.isNegative, s.opposite.difference, s.entry.difference);
            limbs_select(s.entry.product, digit.isNegative, s.opposite.product, s.entry.product);
            edwards_add_affine(s.sum, s.sum, s.entry);
        }
        if (offset > 0) {
            for (size_t i = 0; i < kEdwardsWindow; i++)
                edwards_double(s.sum, s.sum);
        }
    }
    result = s.sum;
}

// sum_of_multiples gives a times the base point and b times a point, for public values.
void sum_of_multiples(EdwardsPoint& sum, const Scalar& a, const Scalar& b, const EdwardsPoint& point) {
    constexpr size_t kWidth = 5, kBaseWidth = 7, kBits = 253;
    std::array<EdwardsAddend, 8> odd;
    EdwardsPoint multiple = point, twice;
    EdwardsAddend two;
    edwards_double(twice, point);
    edwards_addend(two, twice);
    for (EdwardsAddend& addend : odd) {
        edwards_addend(addend, multiple);
        edwards_add(multiple, multiple, two);
    }
    const NonAdjacentForm<4, kBits> na(a, kBaseWidth), nb(b, kWidth);
    sum = edwards_identity();
    for (size_t i = kBits + 1; i-- > 0;) {
        edwards_double(sum, sum);
        if (const int8_t digit = nb.digits[i]) {
            EdwardsAddend q = odd[static_cast<size_t>(digit < 0 ? -digit : digit) / 2];
            if (digit < 0)
                edwards_negate(q.point, q.point);
            edwards_add(sum, sum, q);
        }
        if (const int8_t digit = na.digits[i]) {
            EdwardsAffineAddend q = kBaseOdd[static_cast<size_t>(digit < 0 ? -digit : digit) / 2];
            if (digit < 0)
                edwards_negate(q, q);
            edwards_add_affine(sum, sum, q);
        }
    }
}

void begin(Sha512Context& digest, Ed25519Form form) {
    sha512_init(digest);
    if (form == Ed25519Form::preHashed) {
        sha512_update(digest, kDomain, sizeof kDomain - 1);
        sha512_update(digest, kPreHashedDomain, sizeof kPreHashedDomain);
    }
}

// challenge gives SHA-512(R || A || M) modulo L; false if the message cannot be read.
bool challenge(Scalar& k, const uint8_t* r, const uint8_t* publicKey, Ed25519Message& message,
               Ed25519Form form) {
    Sha512Context digest;
    uint8_t bytes[kSha512Size];
    begin(digest, form);
    sha512_update(digest, r, kEd25519Key);
    sha512_update(digest, publicKey, kEd25519Key);
    const bool isRead = message.feed(digest);
    sha512_final(digest, bytes);
    scalar_reduce(k, bytes);
    return isRead;
}

// A private key's scalar, below L, and the prefix that its secret numbers come from.
struct ExpandedKey {
    Secret<kSha512Size> bytes;
    Wiped<Scalar> scalar;

    explicit ExpandedKey(const uint8_t* privateKey) {
        Wiped<Sha512Context> digest;
        sha512_init(*digest);
        sha512_update(*digest, privateKey, kEd25519Key);
        sha512_final(*digest, bytes.data());
        Secret<kSha512Size> clamped;
        memcpy(clamped.data(), bytes.data(), 32);
        clamped[0] &= 0xF8;
        clamped[31] = static_cast<uint8_t>((clamped[31] & 0x7F) | 0x40);
        scalar_reduce(*scalar, clamped.data());
    }
    const uint8_t* prefix() const { return bytes.data() + 32; }
};

void make_public(uint8_t* publicKey, const uint8_t* privateKey) {
    const ExpandedKey key(privateKey);
    Wiped<EdwardsPoint> point;
    base_multiply(*point, *key.scalar);
    encode(publicKey, *point);
}

bool make_signature(uint8_t* signature, const uint8_t* privateKey, const uint8_t* publicKey,
                    Ed25519Message& message, Ed25519Form form) {
    const ExpandedKey key(privateKey);
    Secret<kSha512Size> bytes;
    Wiped<Scalar> r, k;
    {
        Wiped<Sha512Context> digest;
        begin(*digest, form);
        sha512_update(*digest, key.prefix(), 32);
        const bool isRead = message.feed(*digest);
        sha512_final(*digest, bytes.data());
        if (!isRead) {
            memset(signature, 0, kEd25519Signature);
            return false;
        }
    }
    scalar_reduce(*r, bytes.data());
    Wiped<EdwardsPoint> point;
    base_multiply(*point, *r);
    encode(signature, *point);
    if (!challenge(*k, signature, publicKey, message, form)) {
        memset(signature, 0, kEd25519Signature);
        return false;
    }
    // S = r + k a
    montgomery_multiply(*k, *k, kEdwardsOrder.square, kEdwardsOrder);
    montgomery_multiply(*k, *k, *key.scalar, kEdwardsOrder);
    montgomery_add(*k, *k, *r, kEdwardsOrder.p);
    write_little_endian(signature + 32, *k);
    return true;
}

constexpr size_t kStackDepth = size_t{16} * 1024; // a kernel of SHA-512 takes most of it

} // namespace

void ed25519_public(uint8_t* publicKey, const uint8_t* privateKey) {
    WithCleanStack<make_public>::call<kStackDepth>(publicKey, privateKey);
}

bool ed25519_sign(uint8_t* signature, const uint8_t* privateKey, const uint8_t* publicKey,
                  Ed25519Message& message, Ed25519Form form) {
    return WithCleanStack<make_signature>::call<kStackDepth>(signature, privateKey, publicKey, message, form);
}

bool ed25519_key_is_valid(const uint8_t* publicKey) {
    EdwardsPoint point;
    return decode(point, publicKey) && !has_small_order(point);
}

bool ed25519_verify(const uint8_t* signature, const uint8_t* publicKey, Ed25519Message& message,
                    Ed25519Form form, bool* unread) {
    *unread = false;
    const Scalar s = read_little_endian(signature + 32);
    EdwardsPoint point, sum;
    if (!limbs_below(s, kEdwardsOrder.p) || !decode(point, publicKey) || has_small_order(point))
        return false;
    Scalar k;
    if (!challenge(k, signature, publicKey, message, form)) {
        *unread = true;
        return false;
    }
    // R = S B - k A
    F::subtract(point.x, F::Element{}, point.x);
    F::subtract(point.t, F::Element{}, point.t);
    sum_of_multiples(sum, s, k, point);
    uint8_t expected[kEd25519Key];
    encode(expected, sum);
    return memcmp(expected, signature, kEd25519Key) == 0;
}

} // namespace zul
