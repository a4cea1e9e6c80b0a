#include "bignum/mt.h"

#include <algorithm>

#include "frame/memory.h"
#include "platform/platform.h"

namespace zul {

namespace {

[[noreturn]] void out_of_memory(const char* message) {
    platform::message_box("Multon Error", static_cast<int>(platform::ReportType::error), message);
    platform::end_process(1);
}

} // namespace

MT mtNew() {
    auto* b = static_cast<MT>(try_calloc(sizeof(MtNumber)));
    auto* digits = b == nullptr ? nullptr : static_cast<DIGIT_T*>(try_calloc(sizeof(DIGIT_T)));
    if (digits == nullptr)
        out_of_memory("mtNew: Failed to calloc memory.");
    *b = {digits, 0, 1};
    return b;
}

void mtFree(MT* b) {
    if (*b == nullptr)
        return;
    mpFree(&(*b)->digits, (*b)->maxdigits);
    **b = {};
    efree(*b);
    *b = nullptr;
}

// An array never grows in place: the system might move it and leave a copy behind.
void mt_resize(MT b, size_t n) {
    if (n < b->ndigits) {
        mpSetZero(b->digits + n, b->ndigits - n);
        b->ndigits = n;
        return;
    }
    if (n > b->maxdigits) {
        auto* grown = n <= SIZE_MAX / sizeof(DIGIT_T) ? static_cast<DIGIT_T*>(try_calloc(n * sizeof(DIGIT_T)))
                                                      : nullptr;
        if (grown != nullptr)
            mpSetEqual(grown, b->digits, b->ndigits);
        mpFree(&b->digits, b->maxdigits);
        if (grown == nullptr)
            out_of_memory("mt_resize: Failed to realloc memory.");
        b->digits = grown;
        b->maxdigits = n;
    }
    mpSetZero(b->digits + b->ndigits, n - b->ndigits);
}

int mtSetZero(MT b) {
    mpSetZero(b->digits, b->ndigits);
    b->ndigits = 0;
    return 0;
}

int mtSetShort(MT b, DIGIT_T d) {
    mtSetZero(b);
    mt_resize(b, 1);
    b->digits[0] = d;
    b->ndigits = d != 0 ? 1 : 0;
    return 0;
}

int mtSetEqual(MT a, const MtNumber* b) {
    mt_resize(a, b->ndigits);
    mpSetEqual(a->digits, b->digits, b->ndigits);
    a->ndigits = b->ndigits;
    return 0;
}

size_t mtConvFromOctets(MT b, const uint8_t* bytes, size_t nbytes) {
    const size_t n = nbytes / sizeof(DIGIT_T) + (nbytes % sizeof(DIGIT_T) != 0 ? 1 : 0);
    mt_resize(b, n);
    const size_t filled = mpConvFromOctets(b->digits, n, bytes, nbytes);
    b->ndigits = mpSizeof(b->digits, n);
    return filled;
}

size_t mtConvToOctets(const MtNumber* b, uint8_t* bytes, size_t nbytes) {
    const size_t length = mpConvToOctets(b->digits, b->ndigits, bytes, bytes == nullptr ? 0 : nbytes);
    return std::max<size_t>(length, 1);
}

size_t mtBitLength(const MtNumber* b) {
    return mpBitLength(b->digits, b->ndigits);
}

int mtCompare(const MtNumber* a, const MtNumber* b) {
    const size_t an = mpSizeof(a->digits, a->ndigits);
    const size_t bn = mpSizeof(b->digits, b->ndigits);
    if (an != bn)
        return an > bn ? 1 : -1;
    return mpCompare(a->digits, b->digits, an);
}

int mtIsEqual(const MtNumber* a, const MtNumber* b) {
    return mtCompare(a, b) == 0 ? 1 : 0;
}

int mtIsZero(const MtNumber* a) {
    return mpIsZero(a->digits, a->ndigits);
}

bool mtIsOdd(const MtNumber* a) {
    return mtBitLength(a) > 0 && (a->digits[0] & 1) != 0;
}

int mtShortCmp(const MtNumber* a, DIGIT_T d) {
    return mpShortCmp(a->digits, d, a->ndigits);
}

int mtSetBit(MT b, size_t bit, int value) {
    const size_t n = std::max(b->ndigits, bit / kDigitBits + 1);
    mt_resize(b, n);
    const int result = mpSetBit(b->digits, n, bit, value);
    b->ndigits = mpSizeof(b->digits, n);
    return result;
}

int mtRandomBits(MT b, size_t nbits, const uint8_t* seed, size_t seedLen, MtFill fill) {
    const size_t n = nbits / kDigitBits + (nbits % kDigitBits != 0 ? 1 : 0);
    mtSetZero(b);
    mt_resize(b, n);
    const int code = fill(reinterpret_cast<uint8_t*>(b->digits), n * sizeof(DIGIT_T), seed, seedLen);
    if (code != 0) {
        mpSetZero(b->digits, n);
        return code;
    }
    if (n > 0)
        b->digits[n - 1] &= kMaxDigit >> (kDigitBits - 1 - (nbits - 1) % kDigitBits);
    b->ndigits = n;
    return 0;
}

void mtPrint(const MtNumber* b, int flags) {
    size_t n = b->ndigits;
    if ((flags & kMtPrintNoLeadingZeros) != 0)
        n = mpSizeof(b->digits, n);
    // Zero is printed as one digit.
    constexpr DIGIT_T kZero = 0;
    mpPrintHex(n == 0 ? &kZero : b->digits, std::max<size_t>(n, 1), (flags & kMtPrintLines) != 0);
}

} // namespace zul
