#pragma once
#include <new>
#include <type_traits>
#include <utility>

#include "frame/memory.h"

namespace zul {

// Array owns elements in one block that grows by doubling. Elements move when it grows, so no pointer to one
// stays valid across add. Blocks are not wiped: secrets belong into SecretBuffer.
template<class T>
class Array {
    static_assert(std::is_nothrow_move_constructible_v<T>);

  public:
    Array() = default;
    Array(Array&& other) noexcept { swap(other); }
    Array& operator=(Array&& other) noexcept {
        swap(other);
        return *this;
    }
    ~Array() {
        clear();
        efree(items_);
    }

    T& add(T item) {
        if (size_ == capacity_)
            reserve(capacity_ == 0 ? 8 : 2 * capacity_);
        return *new (items_ + size_++) T(std::move(item));
    }
    void reserve(size_t capacity) {
        if (capacity <= capacity_)
            return;
        // A product above the limit of a block is fatal in emalloc, so it must not wrap.
        T* items =
            static_cast<T*>(emalloc(capacity <= SIZE_MAX / sizeof(T) ? capacity * sizeof(T) : SIZE_MAX));
        for (size_t i = 0; i < size_; i++) {
            new (items + i) T(std::move(items_[i]));
            items_[i].~T();
        }
        efree(items_);
        items_ = items;
        capacity_ = capacity;
    }
    void shrink(size_t size) {
        while (size_ > size)
            items_[--size_].~T();
    }
    void clear() { shrink(0); }

    size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }
    T& operator[](size_t i) { return items_[i]; }
    const T& operator[](size_t i) const { return items_[i]; }
    T& back() { return items_[size_ - 1]; }
    const T& back() const { return items_[size_ - 1]; }
    T* begin() { return items_; }
    T* end() { return items_ + size_; }
    const T* begin() const { return items_; }
    const T* end() const { return items_ + size_; }

  private:
    void swap(Array& other) {
        std::swap(items_, other.items_);
        std::swap(size_, other.size_);
        std::swap(capacity_, other.capacity_);
    }

    T* items_ = nullptr;
    size_t size_ = 0, capacity_ = 0;
};

} // namespace zul
