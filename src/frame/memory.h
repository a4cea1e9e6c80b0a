#pragma once
#include <cstddef>
#include <cstdint>
#include <utility>

#include "frame/wipe.h"

namespace zul {

// The largest block that the library asks for; a request above it ends the process.
constexpr size_t kMaxAllocation = 0x3FFFFFFF;

// The allocation functions never return a null pointer: a request that is too big or cannot be served makes
// the fatal report and ends the process with status 1. A request of 0 is served as 1.
void* emalloc(size_t size);               // whatever bytes the block had before
void* ecalloc(size_t count, size_t size); // zero-filled
char* estrdup(const char* text);
void efree(void* block); // null is ignored; the content is not wiped

// egrow returns a block of newSize bytes that begins with the oldSize bytes of block; the old block is wiped
// and freed. A size that does not grow returns the same block untouched.
void* egrow(void* block, size_t newSize, size_t oldSize);

// try_calloc is ecalloc for the few callers that can go on without memory: null when it cannot be served.
void* try_calloc(size_t size);

// live_blocks counts the blocks handed out by the functions above, and SecretPages, not yet freed.
long live_blocks();

// SecretBuffer owns a block of bytes and wipes it before it is freed.
class SecretBuffer {
  public:
    SecretBuffer() = default;
    explicit SecretBuffer(size_t size)
        : data_(static_cast<uint8_t*>(ecalloc(size, 1))), size_(size), capacity_(size) {}
    SecretBuffer(SecretBuffer&& other) noexcept
        : data_(std::exchange(other.data_, nullptr)), size_(std::exchange(other.size_, 0)),
          capacity_(std::exchange(other.capacity_, 0)) {}
    SecretBuffer& operator=(SecretBuffer&& other) noexcept {
        std::swap(data_, other.data_);
        std::swap(size_, other.size_);
        std::swap(capacity_, other.capacity_);
        return *this;
    }
    ~SecretBuffer() {
        wipe_bytes(data_, capacity_);
        efree(data_);
    }

    uint8_t* data() { return data_; }
    const uint8_t* data() const { return data_; }
    char* text() { return reinterpret_cast<char*>(data_); }
    const char* text() const { return reinterpret_cast<const char*>(data_); }
    size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }
    uint8_t& operator[](size_t i) { return data_[i]; }
    uint8_t operator[](size_t i) const { return data_[i]; }

    // append adds bytes at the end, in a block of its own that grows by doubling; a NUL follows the last one.
    void append(const void* bytes, size_t size);

    // shrink reduces size(); the whole block is still wiped.
    void shrink(size_t size) {
        if (size < size_)
            size_ = size;
    }

  private:
    uint8_t* data_ = nullptr;
    size_t size_ = 0;
    size_t capacity_ = 0;
};

// SecretPages owns zero-filled memory of any size, aligned to a page at least, and wipes it before it is
// given back. Running out is not fatal: data() is then null.
class SecretPages {
  public:
    explicit SecretPages(size_t size);
    SecretPages(const SecretPages&) = delete;
    SecretPages& operator=(const SecretPages&) = delete;
    ~SecretPages();

    void* data() { return pages_; }

  private:
    void* pages_;
    size_t size_;
};

} // namespace zul
