#pragma once
#include <cstddef>
#include <limits>
#include <new>
#include <vector>
#include <zulcore.h>

// Memory that is overwritten before it is freed.
namespace tool {

constexpr size_t kMaxLength = static_cast<size_t>(std::numeric_limits<int>::max());

// WipingAllocator overwrites memory before it is freed, also the old block of a vector that grows.
template<class T>
struct WipingAllocator {
    using value_type = T;
    T* allocate(size_t count) { return static_cast<T*>(::operator new(count * sizeof(T))); }
    void deallocate(T* block, size_t count) {
        auto* bytes = reinterpret_cast<unsigned char*>(block);
        for (size_t left = count * sizeof(T); left > 0;) {
            const size_t step = left < kMaxLength ? left : kMaxLength;
            WIPE_Data(bytes, static_cast<int>(step));
            bytes += step;
            left -= step;
        }
        ::operator delete(block);
    }
    bool operator==(const WipingAllocator&) const { return true; }
};

// SecretBytes holds a key, a message or a text on its way to or from the library.
using SecretBytes = std::vector<unsigned char, WipingAllocator<unsigned char>>;

inline int int_length(const SecretBytes& bytes) {
    return static_cast<int>(bytes.size());
}

inline const char* as_text(const SecretBytes& text) {
    return reinterpret_cast<const char*>(text.data());
}

} // namespace tool
