#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace zul {

// wipe_bytes overwrites length bytes with zero, from the end back to the start. The optimiser cannot remove
// it. A null buffer is ignored.
void wipe_bytes(void* buffer, size_t length);

// wipe_fixed is wipe_bytes for a length that is known when this is compiled. A short one takes no call, which
// the digest of a short message would show.
template<size_t length>
inline void wipe_fixed(void* buffer) {
    constexpr size_t kShort = 256, kStep = 64; // compilers make single stores of a step at most
    if constexpr (length > kShort) {
        wipe_bytes(buffer, length);
    } else {
        auto* bytes = static_cast<uint8_t*>(buffer);
        constexpr size_t kFirst = length % kStep;
#pragma GCC unroll 4
        for (size_t end = length; end > kFirst; end -= kStep) // cppcheck-suppress constStatement
            std::memset(bytes + end - kStep, 0, kStep);
        std::memset(bytes, 0, kFirst);
        __asm__ volatile("" : : "r"(bytes) : "memory");
    }
}

template<class T>
inline void wipe_object(T& object) {
    static_assert(std::is_trivially_destructible_v<T>);
    wipe_fixed<sizeof object>(&object);
}

// wipe_dead_stack overwrites depth bytes of stack below its caller, where functions that have returned may
// have left temporaries that no object wipes.
void wipe_dead_stack(size_t depth = 4096);

// WithCleanStack<function>::call<depth> calls the function and then wipes the stack that it used. The
// function is never inlined, so all of its frame lies in the depth bytes.
template<auto function>
struct WithCleanStack;
template<class Result, class... Arguments, Result (*function)(Arguments...)>
struct WithCleanStack<function> {
    template<size_t depth>
    static Result call(Arguments... arguments) {
        struct Wipe {
            ~Wipe() { wipe_dead_stack(depth); }
        } wipe;
        auto* hidden = function;
        __asm__("" : "+r"(hidden));
        return hidden(arguments...);
    }
};

// Secret<N> is a fixed byte array for key material: zero at the start, wiped at its end.
template<size_t N>
class Secret {
  public:
    Secret() = default;
    Secret(const Secret&) = delete;
    Secret& operator=(const Secret&) = delete;
    ~Secret() { wipe_fixed<N>(bytes_.data()); }

    uint8_t* data() { return bytes_.data(); }
    const uint8_t* data() const { return bytes_.data(); }
    static constexpr size_t size() { return N; }
    uint8_t& operator[](size_t i) { return bytes_[i]; }
    uint8_t operator[](size_t i) const { return bytes_[i]; }

  private:
    alignas(16) std::array<uint8_t, N> bytes_{};
};

// Wiped<T> holds a plain structure that carries key material (a digest context, a key schedule) and wipes it
// at its end.
template<class T>
class Wiped {
    static_assert(std::is_trivially_destructible_v<T>);

  public:
    Wiped() = default;
    Wiped(const Wiped&) = delete;
    Wiped& operator=(const Wiped&) = delete;
    ~Wiped() { wipe_object(value_); }

    T& operator*() { return value_; }
    T* operator->() { return &value_; }
    const T& operator*() const { return value_; }
    const T* operator->() const { return &value_; }

  private:
    T value_{};
};

} // namespace zul
