#pragma once
#include <bit>
#include <cstdint>
#include <cstring>

#include "platform/target.h"

// Words in memory in the byte order of a digest, whatever the processor's own.
namespace zul {

inline uint32_t swap_unless(std::endian order, uint32_t x) {
    return std::endian::native == order ? x : __builtin_bswap32(x);
}

inline uint64_t swap_unless(std::endian order, uint64_t x) {
    return std::endian::native == order ? x : __builtin_bswap64(x);
}

template<class Word, std::endian Order>
inline Word load_word(const uint8_t* bytes) {
    Word x;
    memcpy(&x, bytes, sizeof x);
    return swap_unless(Order, x);
}

template<std::endian Order, class Word>
inline void store_word(uint8_t* bytes, Word x) {
    x = swap_unless(Order, x);
    memcpy(bytes, &x, sizeof x);
}

// keep_order makes the compiler finish a sum up to here before it adds what follows. The compiler must not
// reorder the sum so that a late term delays early ones.
template<class Word>
ZUL_ALWAYS_INLINE void keep_order(Word& sum) {
    __asm__("" : "+r"(sum));
}

// add_words adds the working variables of a block to the state before it. Each word is stored by itself:
// gathered in a vector register, as compilers like to do, they would reach the next block later.
template<class Word, class... Words>
ZUL_ALWAYS_INLINE void add_words(Word* state, Words... words) {
    Word* next = state;
    auto add = [&](Word word) __attribute__((always_inline)) {
        *next += word;
        __asm__("" : "+m"(*next));
        next++;
    };
    (add(words), ...);
}

} // namespace zul
