#include <algorithm>
#include <cstring>

#include "bignum/mp.h"
#include "frame/memory.h"
#include "platform/platform.h"

namespace zul {

DIGIT_T* mpAlloc(size_t n) {
    void* digits =
        n <= SIZE_MAX / sizeof(DIGIT_T) ? try_calloc(std::max<size_t>(n, 1) * sizeof(DIGIT_T)) : nullptr;
    if (digits == nullptr) {
        platform::message_box("Multon Error", static_cast<int>(platform::ReportType::error),
                              "mpAlloc: Unable to allocate memory.");
        platform::end_process(1);
    }
    return static_cast<DIGIT_T*>(digits);
}

void mpFree(DIGIT_T** a, size_t n) {
    if (*a == nullptr)
        return;
    wipe_bytes(*a, n * sizeof(DIGIT_T));
    efree(*a);
    *a = nullptr;
}

void mpSetZero(DIGIT_T* a, size_t n) {
    std::fill_n(a, n, 0);
}

void mpSetDigit(DIGIT_T* a, DIGIT_T d, size_t n) {
    mpSetZero(a, n);
    if (n > 0)
        a[0] = d;
}

void mpSetEqual(DIGIT_T* a, const DIGIT_T* b, size_t n) {
    if (n > 0)
        memmove(a, b, n * sizeof(DIGIT_T));
}

size_t mpSizeof(const DIGIT_T* a, size_t n) {
    while (n > 0 && a[n - 1] == 0)
        n--;
    return n;
}

size_t mpBitLength(const DIGIT_T* a, size_t n) {
    if (a == nullptr)
        return 0;
    n = mpSizeof(a, n);
    return n == 0 ? 0 : n * kDigitBits - static_cast<size_t>(__builtin_clz(a[n - 1]));
}

int mpIsZero(const DIGIT_T* a, size_t n) {
    if (n == 0)
        return -1;
    return mpSizeof(a, n) == 0 ? 1 : 0;
}

int mpCompare(const DIGIT_T* a, const DIGIT_T* b, size_t n) {
    while (n-- > 0)
        if (a[n] != b[n])
            return a[n] > b[n] ? 1 : -1;
    return 0;
}

int mpShortCmp(const DIGIT_T* a, DIGIT_T d, size_t n) {
    const size_t size = mpSizeof(a, n);
    if (size > 1)
        return 1;
    const DIGIT_T value = size == 0 ? 0 : a[0];
    return value == d ? 0 : value > d ? 1 : -1;
}

DIGIT_T mpAdd(DIGIT_T* w, const DIGIT_T* u, const DIGIT_T* v, size_t n) {
    uint64_t carry = 0;
    for (size_t i = 0; i < n; i++) {
        carry += uint64_t{u[i]} + v[i];
        w[i] = static_cast<DIGIT_T>(carry);
        carry >>= kDigitBits;
    }
    return static_cast<DIGIT_T>(carry);
}

DIGIT_T mpSubtract(DIGIT_T* w, const DIGIT_T* u, const DIGIT_T* v, size_t n) {
    DIGIT_T borrow = 0;
    for (size_t i = 0; i < n; i++) {
        const uint64_t difference = uint64_t{u[i]} - v[i] - borrow;
        w[i] = static_cast<DIGIT_T>(difference);
        borrow = static_cast<DIGIT_T>(difference >> 63);
    }
    return borrow;
}

DIGIT_T mpShortAdd(DIGIT_T* w, const DIGIT_T* u, DIGIT_T d, size_t n) {
    for (size_t i = 0; i < n; i++) {
        const uint64_t sum = uint64_t{u[i]} + d;
        w[i] = static_cast<DIGIT_T>(sum);
        d = static_cast<DIGIT_T>(sum >> kDigitBits);
    }
    return d;
}

DIGIT_T mpShortSub(DIGIT_T* w, const DIGIT_T* u, DIGIT_T d, size_t n) {
    for (size_t i = 0; i < n; i++) {
        const uint64_t difference = uint64_t{u[i]} - d;
        w[i] = static_cast<DIGIT_T>(difference);
        d = static_cast<DIGIT_T>(difference >> 63);
    }
    return d;
}

int mpVersion() {
    return 2202;
}

} // namespace zul
