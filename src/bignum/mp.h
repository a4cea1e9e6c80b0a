#pragma once
#include <cstddef>
#include <cstdint>

// Non-negative integers in arrays of 32-bit digits, least significant digit first. Every call is given the
// number of digits; nothing is allocated but scratch space, which is wiped before it is released. Operands
// called w, a, q, r, y, inv and g are results.
namespace zul {

using DIGIT_T = uint32_t;
constexpr unsigned kDigitBits = 32;
constexpr DIGIT_T kMaxDigit = 0xFFFFFFFF;

// mpAlloc returns n zero digits; without memory it reports and ends the process. mpFree wipes and frees them
// and sets the pointer to null; a null pointer is ignored.
DIGIT_T* mpAlloc(size_t n);
void mpFree(DIGIT_T** a, size_t n);

void mpSetZero(DIGIT_T* a, size_t n);
void mpSetDigit(DIGIT_T* a, DIGIT_T d, size_t n);
void mpSetEqual(DIGIT_T* a, const DIGIT_T* b, size_t n);
size_t mpSizeof(const DIGIT_T* a, size_t n);            // significant digits, 0 for zero
size_t mpBitLength(const DIGIT_T* a, size_t n);         // 0 for zero, a null array or n = 0
[[nodiscard]] int mpIsZero(const DIGIT_T* a, size_t n); // 1 or 0; -1 (which tests as true) for n = 0
[[nodiscard]] int mpCompare(const DIGIT_T* a, const DIGIT_T* b, size_t n); // 1, 0 or -1
[[nodiscard]] int mpShortCmp(const DIGIT_T* a, DIGIT_T d, size_t n); // likewise; n = 0 counts as the value 0

// The carry or borrow (0 or 1) is returned; w may be an operand.
DIGIT_T mpAdd(DIGIT_T* w, const DIGIT_T* u, const DIGIT_T* v, size_t n);
DIGIT_T mpSubtract(DIGIT_T* w, const DIGIT_T* u, const DIGIT_T* v, size_t n);
DIGIT_T mpShortAdd(DIGIT_T* w, const DIGIT_T* u, DIGIT_T d, size_t n);
DIGIT_T mpShortSub(DIGIT_T* w, const DIGIT_T* u, DIGIT_T d, size_t n);

// w has 2n digits and does not overlap an operand.
void mpMultiply(DIGIT_T* w, const DIGIT_T* u, const DIGIT_T* v, size_t n);
void mpSquare(DIGIT_T* w, const DIGIT_T* x, size_t n);
DIGIT_T mpShortMult(DIGIT_T* w, const DIGIT_T* u, DIGIT_T d, size_t n); // the overflow digit; w may be u

// mpDivide: q = u div v and r = u mod v, both of udigits digits. -1 if v is zero (q and r are then zero),
// else 0. q, r, u and v are four different arrays.
[[nodiscard]] int mpDivide(DIGIT_T* q, DIGIT_T* r, const DIGIT_T* u, size_t udigits, const DIGIT_T* v,
                           size_t vdigits);
void mpModulo(DIGIT_T* r, const DIGIT_T* u, size_t udigits, const DIGIT_T* v, size_t vdigits); // r: vdigits
DIGIT_T mpShortDiv(DIGIT_T* q, const DIGIT_T* u, DIGIT_T d, size_t n); // the remainder; 0 for d = 0 or n = 0
DIGIT_T mpShortMod(const DIGIT_T* a, DIGIT_T d, size_t n);

// The bits shifted out of the end are returned as a digit; a may be b; any shift.
DIGIT_T mpShiftLeft(DIGIT_T* a, const DIGIT_T* b, size_t shift, size_t n);
DIGIT_T mpShiftRight(DIGIT_T* a, const DIGIT_T* b, size_t shift, size_t n);
[[nodiscard]] int mpSetBit(DIGIT_T* a, size_t n, size_t bit,
                           int value); // -1 if the array has no such bit, else 0

// Modular arithmetic; every array has n digits.
void mpModMult(DIGIT_T* a, const DIGIT_T* x, const DIGIT_T* y, const DIGIT_T* m, size_t n);
// mpModExp: y = x^e mod m for x below m. The base is never reduced: e = 0 gives 1 and e = 1 gives x itself,
// whatever m is, and 1 is returned for both; 0 otherwise.
int mpModExp(DIGIT_T* y, const DIGIT_T* x, const DIGIT_T* e, const DIGIT_T* m, size_t n);
// mpModExpPair does two exponentiations, which takes less time than one after the other.
struct MpPower {
    DIGIT_T* y;
    const DIGIT_T *x, *e, *m;
};
void mpModExpPair(const MpPower& a, const MpPower& b, size_t n);
[[nodiscard]] int mpModInv(DIGIT_T* inv, const DIGIT_T* u, const DIGIT_T* v,
                           size_t n);                                // 1 and inv = 0 if there is none
int mpGcd(DIGIT_T* g, const DIGIT_T* x, const DIGIT_T* y, size_t n); // 0
// mpRabinMiller: 1 if w passes t rounds with random witnesses of one digit. For odd w above 3 (w = 2 would
// loop for ever).
[[nodiscard]] int mpRabinMiller(const DIGIT_T* w, size_t n, size_t t);

// Big-endian bytes. mpConvFromOctets ignores high-order bytes that do not fit and returns the digits filled.
// mpConvToOctets writes exactly nbytes bytes, the low-order ones if a is longer, and returns the least number
// of bytes that holds a.
size_t mpConvFromOctets(DIGIT_T* a, size_t n, const uint8_t* bytes, size_t nbytes);
size_t mpConvToOctets(const DIGIT_T* a, size_t n, uint8_t* bytes, size_t nbytes);

void mpPrintHex(const DIGIT_T* a, size_t n, bool lineBreaks); // standard output
int mpVersion();                                              // 2202

} // namespace zul
