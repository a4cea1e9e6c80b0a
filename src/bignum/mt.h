#pragma once
#include <utility>

#include "bignum/mp.h"

// Big integers that own their digits and grow as needed. Operations write their first argument and return 0
// unless stated. Operands may be grown (their value and ndigits stay), so they are not const.
namespace zul {

struct MtNumber {
    DIGIT_T* digits;
    size_t ndigits;   // digits that make up the value; those from here up to maxdigits are zero
    size_t maxdigits; // allocated
};
using MT = MtNumber*;

MT mtNew(); // zero, with room for one digit; without memory it reports and ends the process
void mtFree(MT* b);
void mt_resize(MT b, size_t n); // room for n digits; a value that is longer is cut

int mtSetZero(MT b);
int mtSetShort(MT b, DIGIT_T d);
int mtSetEqual(MT a, const MtNumber* b);
size_t mtConvFromOctets(MT b, const uint8_t* bytes, size_t nbytes); // the digits filled
// mtConvToOctets returns the least number of bytes for b, at least 1; with bytes null or nbytes 0 no more
// than that, otherwise it writes b right-aligned into exactly nbytes bytes.
size_t mtConvToOctets(const MtNumber* b, uint8_t* bytes, size_t nbytes);
size_t mtBitLength(const MtNumber* b);

[[nodiscard]] int mtCompare(const MtNumber* a, const MtNumber* b); // 1, 0 or -1, by value
[[nodiscard]] int mtIsEqual(const MtNumber* a, const MtNumber* b); // 1 or 0, by value
[[nodiscard]] int mtIsZero(const MtNumber* a);                     // 1 or 0; -1 for an object without digits
[[nodiscard]] int mtShortCmp(const MtNumber* a, DIGIT_T d);
bool mtIsOdd(const MtNumber* a);

DIGIT_T mtAdd(MT w, MT u, MT v);            // the carry, which w has room for
DIGIT_T mtSubtract(MT w, MT u, MT v);       // the borrow
int mtMultiply(MT w, MT u, MT v);           // w may be u or v
int mtModulo(MT r, MT u, MT m);             // r may be u or m
DIGIT_T mtShortAdd(MT w, MT u, DIGIT_T d);  // the carry
DIGIT_T mtShortSub(MT w, MT u, DIGIT_T d);  // the borrow; a leading zero digit may stay in ndigits
DIGIT_T mtShortMult(MT w, MT u, DIGIT_T d); // the overflow
DIGIT_T mtShortMod(MT r, const MtNumber* u, DIGIT_T d); // the remainder
int mtDecrement(MT b);
int mtShiftRight(MT a, MT b, size_t bits);
int mtSetBit(MT b, size_t bit, int value);

int mtModMult(MT a, MT x, MT y, MT m);
int mtModExp(MT y, MT x, MT e, MT m); // x below m, as for mpModExp
struct MtPower {
    MT y, x, e, m;
};
void mtModExpPair(const MtPower& a, const MtPower& b); // as two of mtModExp
[[nodiscard]] int mtModInv(MT inv, MT u, MT m);        // 1 if there is none
int mtGcd(MT g, MT x, MT y);
[[nodiscard]] int mtRabinMiller(MT w, size_t t);

// mtRandomBits sets b to nbits random bits; the top bit is not forced. fill makes random bytes from optional
// additional input; its result, 0 on success, is returned.
using MtFill = int (*)(uint8_t* out, size_t len, const uint8_t* seed, size_t seedLen);
[[nodiscard]] int mtRandomBits(MT b, size_t nbits, const uint8_t* seed, size_t seedLen, MtFill fill);

constexpr int kMtPrintLines = 1, kMtPrintNoLeadingZeros = 2;
void mtPrint(const MtNumber* b, int flags); // standard output

// BigInt is an integer and converts to its MT. It has no digits, that is null, until it needs one.
class BigInt {
  public:
    BigInt() = default;
    explicit BigInt(DIGIT_T d) { mtSetShort(&number_, d); }
    BigInt(const BigInt&) = delete;
    BigInt& operator=(const BigInt&) = delete;
    ~BigInt() { mpFree(&number_.digits, number_.maxdigits); }
    void swap(BigInt& other) { std::swap(number_, other.number_); }

    operator MT() const { return &number_; }

  private:
    mutable MtNumber number_{};
};

} // namespace zul
