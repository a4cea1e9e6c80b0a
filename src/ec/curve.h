#pragma once
#include <cstddef>
#include <cstdint>

// The curves P-256, P-384 and P-521 (SP 800-186, FIPS 186-5). Integers and coordinates are big-endian bytes
// of the curve's length; a point is x || y.
namespace zul {

enum class EcCurve : int { p256, p384, p521 };

constexpr size_t kMaxEcBytes = 66;

// What one implementation of a curve computes. Functions that take secrets run in constant time.
struct EcOperations {
    size_t bits, bytes; // of a coordinate, and of a scalar

    bool (*scalar_is_valid)(const uint8_t* d); // 0 < d < n
    // public_key gives d times the base point.
    void (*public_key)(uint8_t* point, const uint8_t* d);
    // point_is_valid: the coordinates are below p and satisfy the equation. The order being prime, no other
    // check is needed.
    bool (*point_is_valid)(const uint8_t* point);
    // decompress finds the y of the given parity; false if x is no point's.
    bool (*decompress)(uint8_t* point, const uint8_t* x, bool isOdd);
    // sign makes r || s of a digest, with the secret number k; false if that k will not do (r or s is 0).
    bool (*sign)(uint8_t* rs, const uint8_t* d, const uint8_t* k, const uint8_t* digest, size_t size);
    // verify takes a valid point.
    bool (*verify)(const uint8_t* rs, const uint8_t* point, const uint8_t* digest, size_t size);
    // agree gives x of d times a valid point.
    void (*agree)(uint8_t* x, const uint8_t* d, const uint8_t* point);
    // reduce_digest gives a digest as the integer modulo n that is signed (bits2octets of RFC 6979).
    void (*reduce_digest)(uint8_t* out, const uint8_t* digest, size_t size);
};

// ec_operations gives the fastest implementation that this processor has.
const EcOperations& ec_operations(EcCurve curve);

} // namespace zul
