#pragma once
#include "bignum/mp.h"

// Exponentiation from left to right with a sliding window and a table of odd powers.
namespace zul {

// window_width is the number of exponent bits that a window takes at most; 1 is the binary method.
inline size_t window_width(size_t exponentBits) {
    constexpr size_t kThresholds[] = {5, 16, 64, 240, 768, 1024, 2048, 4096};
    size_t width = 0;
    for (const size_t threshold : kThresholds)
        if (threshold <= exponentBits)
            width++;
    return width > 1 ? width : 1;
}

// window_powers is the number of odd powers in the table.
inline size_t window_powers(size_t exponentBits) {
    return size_t{1} << (window_width(exponentBits) - 1);
}

// window_power raises to the exponent e of the given bits (1 or more, the highest set). The engine has an
// accumulator and the table, whose entry i is x^(2i + 1):
//   power(i)     makes entry i (1 or higher) from entry i - 1, asked for in order and only when needed,
//                so that a public exponent with few set bits costs no table;
//   load(i)      sets the accumulator to entry i;
//   square()     and multiply(i) work on the accumulator.
template<class Engine>
void window_power(Engine& engine, const DIGIT_T* e, size_t exponentBits) {
    const size_t width = window_width(exponentBits);
    size_t made = 1;
    for (size_t left = exponentBits; left > 0;) {
        const auto bit = [e](size_t i) { return e[i / kDigitBits] >> (i % kDigitBits) & 1; };
        if (!bit(left - 1)) {
            engine.square();
            left--;
            continue;
        }
        // The window reaches down to the lowest set bit among the next ones.
        size_t value = 0, length = 0, seen = 0;
        for (size_t i = 0; i < width && i < left; i++) {
            seen = seen << 1 | bit(left - 1 - i);
            if (seen & 1) {
                value = seen;
                length = i + 1;
            }
        }
        for (; made <= value / 2; made++)
            engine.power(made);
        if (left == exponentBits) {
            engine.load(value / 2);
        } else {
            for (size_t i = 0; i < length; i++)
                engine.square();
            engine.multiply(value / 2);
        }
        left -= length;
    }
}

} // namespace zul
