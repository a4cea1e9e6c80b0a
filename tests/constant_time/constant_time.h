#pragma once
#include <cstddef>
#include <cstdint>
#include <span>
#include <valgrind/memcheck.h>

// Secrets are marked as undefined memory. Valgrind then reports every branch and every address that depends
// on one. What an operation gives out for all to see is declared defined again, here or by ct_declassify.
namespace constant_time {

// A number of bytes that are secret until they are revealed.
template<size_t N>
struct Hidden {
    uint8_t bytes[N];

    explicit Hidden(uint8_t first = 1) {
        for (size_t i = 0; i < N; i++)
            bytes[i] = static_cast<uint8_t>(first + 7 * i);
        hide();
    }
    void hide() { VALGRIND_MAKE_MEM_UNDEFINED(bytes, N); }
    void reveal() { VALGRIND_MAKE_MEM_DEFINED(bytes, N); }
    operator uint8_t*() { return bytes; }
};

// expect notes a case that did not do what it should: it has shown nothing.
void expect(bool isRight);

extern volatile unsigned sink;

struct Case {
    const char* name;
    void (*run)();
    bool leaks = false;
};

std::span<const Case> curve_cases();
std::span<const Case> data_cases(); // ciphers, digests, what is built of them, and paddings
std::span<const Case> rsa_cases();
std::span<const Case> password_cases(); // keys of passwords, PKCS #12 and sealed files

} // namespace constant_time
