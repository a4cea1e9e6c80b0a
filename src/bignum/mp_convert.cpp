#include <cstdio>

#include "bignum/mp.h"

namespace zul {

namespace {
constexpr size_t kDigitsPerLine = 8;
}

size_t mpConvFromOctets(DIGIT_T* a, size_t n, const uint8_t* bytes, size_t nbytes) {
    mpSetZero(a, n);
    size_t i = 0;
    for (; i < nbytes && i / sizeof(DIGIT_T) < n; i++)
        a[i / sizeof(DIGIT_T)] |= DIGIT_T{bytes[nbytes - 1 - i]} << 8 * (i % sizeof(DIGIT_T));
    return (i + sizeof(DIGIT_T) - 1) / sizeof(DIGIT_T);
}

size_t mpConvToOctets(const DIGIT_T* a, size_t n, uint8_t* bytes, size_t nbytes) {
    for (size_t i = 0; i < nbytes; i++) {
        const DIGIT_T digit = i / sizeof(DIGIT_T) < n ? a[i / sizeof(DIGIT_T)] : 0;
        bytes[nbytes - 1 - i] = static_cast<uint8_t>(digit >> 8 * (i % sizeof(DIGIT_T)));
    }
    return (mpBitLength(a, n) + 7) / 8;
}

void mpPrintHex(const DIGIT_T* a, size_t n, bool lineBreaks) {
    for (size_t i = 0; i < n; i++) {
        if (lineBreaks && i > 0 && i % kDigitsPerLine == 0)
            printf("\n");
        printf("%08lx ", static_cast<unsigned long>(a[n - 1 - i]));
    }
    if (lineBreaks)
        printf("\n");
}

} // namespace zul
