#include <cstdio>

#include "bignum/mp.h"

namespace zul {

namespace {

constexpr size_t kDigitsPerLine = 8;

// Compilers make one instruction of each.
DIGIT_T load_digit(const uint8_t* bytes) {
    return DIGIT_T{bytes[0]} << 24 | DIGIT_T{bytes[1]} << 16 | DIGIT_T{bytes[2]} << 8 | bytes[3];
}

void store_digit(uint8_t* bytes, DIGIT_T digit) {
    for (unsigned i = 0; i < sizeof digit; i++)
        bytes[i] = static_cast<uint8_t>(digit >> (24 - 8 * i));
}

} // namespace

size_t mpConvFromOctets(DIGIT_T* a, size_t n, const uint8_t* bytes, size_t nbytes) {
    size_t filled = 0;
    for (; nbytes >= sizeof(DIGIT_T) && filled < n; nbytes -= sizeof(DIGIT_T))
        a[filled++] = load_digit(bytes + nbytes - sizeof(DIGIT_T));
    if (nbytes > 0 && filled < n) {
        DIGIT_T top = 0;
        for (size_t i = 0; i < nbytes && i < sizeof(DIGIT_T); i++)
            top = top << 8 | bytes[i];
        a[filled++] = top;
    }
    mpSetZero(a + filled, n - filled);
    return filled;
}

size_t mpConvToOctets(const DIGIT_T* a, size_t n, uint8_t* bytes, size_t nbytes) {
    size_t left = nbytes;
    for (size_t i = 0; left > 0; i++) {
        const DIGIT_T digit = i < n ? a[i] : 0;
        if (left >= sizeof(DIGIT_T)) {
            left -= sizeof(DIGIT_T);
            store_digit(bytes + left, digit);
        } else {
            for (unsigned shift = 0; left > 0; shift += 8)
                bytes[--left] = static_cast<uint8_t>(digit >> shift);
        }
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
