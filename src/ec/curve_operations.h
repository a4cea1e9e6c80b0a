#pragma once
#include <algorithm>

#include "ec/curve.h"
#include "ec/modular_inverse.h"
#include "ec/montgomery.h"
#include "ec/multiple_sum.h"
#include "ec/scalar_multiply.h"
#include "frame/wipe.h"
#include "hash/digest.h"

// The operations of a curve over the arithmetic of its field (ECDSA: FIPS 186-5, 6.4; ECDH: SP
// 800-56A, 5.7.1.2).
namespace zul {

template<class Field, const auto& baseTable, const auto& baseOdd>
struct CurveOperations {
    static constexpr size_t N = Field::kLimbs;
    static constexpr size_t kBytes = (Field::kBits + 7) / 8;
    static constexpr const MontgomeryModulus<N>& kOrder = Field::kOrder;
    // How deep the frames of a multiple of the base point and of another point reach. They hold field
    // elements that no object wipes, in numbers that vary with the compiler.
    static constexpr size_t kBaseDepth = size_t{8} * 1024, kPointDepth = size_t{16} * 1024;
    using Element = typename Field::Element;
    using Integer = Limbs<N>;
    using Affine = AffinePoint<Field>;
    using Jacobian = JacobianPoint<Field>;

    class SecretInteger {
      public:
        explicit SecretInteger(const uint8_t* bytes) { limbs_read(*value_, bytes, kBytes); }
        const Integer& operator*() const { return *value_; }

      private:
        Wiped<Integer> value_;
    };

    static Integer read(const uint8_t* bytes) {
        Integer value;
        limbs_read(value, bytes, kBytes);
        return value;
    }

    static void write_point(uint8_t* bytes, const Affine& point) {
        limbs_write(bytes, kBytes, Field::to_integer(point.x));
        limbs_write(bytes + kBytes, kBytes, Field::to_integer(point.y));
    }
    static Affine read_point(const uint8_t* bytes) {
        return {Field::from_integer(read(bytes)), Field::from_integer(read(bytes + kBytes))};
    }

    // Products modulo the order of two plain integers.
    static void order_multiply(Integer& product, const Integer& a, const Integer& b) {
        Integer raised;
        montgomery_multiply(raised, a, kOrder.square, kOrder);
        montgomery_multiply(product, raised, b, kOrder);
    }
    static void reduce_once(Integer& a) { montgomery_reduce_once(a, 0, kOrder.p); }

    // The leftmost bits of a digest, below twice the order as every number of that length, and then below it.
    static Integer digest_integer(const uint8_t* digest, size_t size) {
        static_assert(Field::kBits % 8 == 0 || 8 * kMaxDigestSize <= Field::kBits,
                      "a digest would have to be shifted");
        Integer value;
        limbs_read(value, digest, std::min(size, kBytes));
        reduce_once(value);
        return value;
    }

    static bool scalar_is_valid(const uint8_t* d) {
        const SecretInteger scalar(d);
        const uint64_t isBelow = limbs_below(*scalar, kOrder.p) ? 1 : 0;
        return (limbs_nonzero_mask(*scalar) & isBelow) != 0;
    }

    static void public_key(uint8_t* point, const uint8_t* d) {
        const SecretInteger scalar(d);
        Wiped<Jacobian> product;
        Wiped<Affine> affine; // the Z of before would tell about the scalar
        base_multiply<Field>(*product, *scalar, baseTable);
        jacobian_to_affine(*affine, *product);
        write_point(point, *affine);
    }

    // right_side gives x^3 - 3x + b.
    static void right_side(Element& result, const Element& x) {
        Element cube, threefold;
        Field::square(cube, x);
        Field::multiply(cube, cube, x);
        Field::add(threefold, x, x);
        Field::add(threefold, threefold, x);
        Field::subtract(cube, cube, threefold);
        Field::add(result, cube, Field::kCurveB);
    }

    static bool equal(const Element& a, const Element& b) {
        Element difference;
        Field::subtract(difference, a, b);
        return Field::is_zero(difference);
    }

    static bool point_is_valid(const uint8_t* bytes) {
        if (!limbs_below(read(bytes), Field::kPrime) || !limbs_below(read(bytes + kBytes), Field::kPrime))
            return false;
        const Affine point = read_point(bytes);
        Element left, right;
        Field::square(left, point.y);
        right_side(right, point.x);
        return equal(left, right);
    }

    static bool decompress(uint8_t* bytes, const uint8_t* xBytes, bool isOdd) {
        const Integer x = read(xBytes);
        if (!limbs_below(x, Field::kPrime))
            return false;
        // p is 3 modulo 4, so a root of a is a^((p + 1) / 4) if there is one.
        Integer exponent = Field::kPrime;
        for (size_t i = 0; i < N; i++)
            exponent[i] = exponent[i] >> 2 | (i + 1 < N ? exponent[i + 1] << 62 : 0);
        uint64_t carry = 1;
        for (size_t i = 0; i < N; i++)
            exponent[i] = add_carry(exponent[i], 0, carry);
        Element square, check;
        right_side(square, Field::from_integer(x));
        Element root = Field::kOne;
        for (size_t i = Field::kBits; i-- > 0;) {
            Field::square(root, root);
            if (limbs_bits(exponent, i, 1) != 0)
                Field::multiply(root, root, square);
        }
        Field::square(check, root);
        if (!equal(check, square))
            return false;
        if (((Field::to_integer(root)[0] & 1) != 0) != isOdd)
            Field::subtract(root, Element{}, root);
        write_point(bytes, {Field::from_integer(x), root});
        // A root of 0 has no odd partner.
        return ((Field::to_integer(root)[0] & 1) != 0) == isOdd;
    }

    static bool sign(uint8_t* rs, const uint8_t* d, const uint8_t* k, const uint8_t* digest, size_t size) {
        const SecretInteger key(d), number(k);
        Wiped<Jacobian> product;
        Wiped<Affine> affine;
        base_multiply<Field>(*product, *number, baseTable);
        jacobian_to_affine(*affine, *product);
        Integer r = Field::to_integer(affine->x);
        reduce_once(r);

        // s = (e + r d) / k
        Wiped<Integer> inverse, sum;
        modular_inverse(*inverse, *number, kOrder.p, Field::kBits);
        order_multiply(*sum, r, *key);
        montgomery_add(*sum, *sum, digest_integer(digest, size), kOrder.p);
        Integer s;
        order_multiply(s, *sum, *inverse);
        limbs_write(rs, kBytes, r);
        limbs_write(rs + kBytes, kBytes, s);
        return (limbs_nonzero_mask(r) & limbs_nonzero_mask(s)) != 0;
    }

    static bool verify(const uint8_t* rs, const uint8_t* point, const uint8_t* digest, size_t size) {
        Integer r = read(rs);
        const Integer s = read(rs + kBytes);
        if (limbs_nonzero_mask(r) == 0 || limbs_nonzero_mask(s) == 0 || !limbs_below(r, kOrder.p) ||
            !limbs_below(s, kOrder.p))
            return false;
        Integer inverse, u1, u2;
        modular_inverse(inverse, s, kOrder.p, Field::kBits);
        order_multiply(u1, digest_integer(digest, size), inverse);
        order_multiply(u2, r, inverse);
        Jacobian sum;
        sum_of_multiples<Field>(sum, u1, baseOdd, u2, read_point(point));
        if (Field::is_zero(sum.z))
            return false;
        // x = X/Z^2 is r, or r + n where that is below p.
        Element square, expected;
        Field::square(square, sum.z);
        Field::multiply(expected, Field::from_integer(r), square);
        if (equal(expected, sum.x))
            return true;
        if (limbs_add(r, r, kOrder.p) != 0 || !limbs_below(r, Field::kPrime))
            return false;
        Field::multiply(expected, Field::from_integer(r), square);
        return equal(expected, sum.x);
    }

    static void agree(uint8_t* x, const uint8_t* d, const uint8_t* point) {
        const SecretInteger scalar(d);
        Wiped<Jacobian> product;
        Wiped<Affine> affine;
        point_multiply<Field>(*product, *scalar, read_point(point));
        jacobian_to_affine(*affine, *product);
        Wiped<Integer> shared;
        *shared = Field::to_integer(affine->x);
        limbs_write(x, kBytes, *shared);
    }

    static void reduce_digest(uint8_t* out, const uint8_t* digest, size_t size) {
        limbs_write(out, kBytes, digest_integer(digest, size));
    }

    static constexpr EcOperations kOperations = {Field::kBits,
                                                 kBytes,
                                                 WithCleanStack<scalar_is_valid>::template call<1024>,
                                                 WithCleanStack<public_key>::template call<kBaseDepth>,
                                                 point_is_valid,
                                                 decompress,
                                                 WithCleanStack<sign>::template call<kBaseDepth>,
                                                 verify,
                                                 WithCleanStack<agree>::template call<kPointDepth>,
                                                 reduce_digest};
};

} // namespace zul
