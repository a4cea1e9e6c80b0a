#include "frame/memory.h"

#include <atomic>
#include <cstdlib>
#include <cstring>

#include "frame/fatal_report.h"
#include "frame/memory_hooks.h"
#include "platform/platform.h"

namespace zul {

namespace {

// The count of live blocks is a sum, so that threads seldom wait for a cache line that another is writing. A
// thread adds to the part that its stack's place stands for; a block that another thread frees makes a part
// negative.
struct alignas(64) CountPart {
    std::atomic<long> blocks{0};
};
constexpr unsigned kCountPartBits = 5;
CountPart liveBlocks[1u << kCountPartBits];

void count_blocks(long change) {
    const auto stack = reinterpret_cast<uintptr_t>(__builtin_frame_address(0));
    const uint32_t mixed = static_cast<uint32_t>(stack >> 20) * 0x9E3779B1; // stacks are megabytes apart
    liveBlocks[mixed >> (32 - kCountPartBits)].blocks.fetch_add(change, std::memory_order_relaxed);
}

std::atomic<decltype(MemoryHooks::refuse)> refuseHook{nullptr};
std::atomic<decltype(MemoryHooks::freed)> freedHook{nullptr};

bool is_refused(size_t size) {
    const auto refuse = refuseHook.load(std::memory_order_relaxed);
    return refuse != nullptr && refuse(size);
}

void* system_malloc(size_t size) {
    if (is_refused(size))
        return nullptr;
    void* block = malloc(size);
    if (block != nullptr)
        count_blocks(1);
    return block;
}

void* system_calloc(size_t size) {
    // The calloc of glibc passes by the thread's own lists of small free blocks, which malloc uses.
    constexpr size_t kSmall = 1024;
    if (size <= kSmall) {
        void* block = system_malloc(size);
        return block == nullptr ? nullptr : memset(block, 0, size);
    }
    if (is_refused(size))
        return nullptr;
    void* block = calloc(size, 1);
    if (block != nullptr)
        count_blocks(1);
    return block;
}

[[noreturn]] void out_of_memory(const char* message) {
    fatal_report(static_cast<int>(platform::ReportType::error), message, kEventAllocation);
    platform::end_process(1);
}

} // namespace

void* emalloc(size_t size) {
    if (size > kMaxAllocation)
        out_of_memory("malloc request is too big.");
    void* block = system_malloc(size == 0 ? 1 : size);
    if (block == nullptr)
        out_of_memory("malloc failed to allocate memory.");
    return block;
}

void* ecalloc(size_t count, size_t size) {
    if (count > kMaxAllocation || size > kMaxAllocation)
        out_of_memory("calloc request is too big.");
    // The two limits keep the product far below the range of size_t.
    const size_t total = (count == 0 ? 1 : count) * (size == 0 ? 1 : size);
    void* block = system_calloc(total);
    if (block == nullptr)
        out_of_memory("calloc failed to allocate memory.");
    return block;
}

char* estrdup(const char* text) {
    const size_t size = strlen(text) + 1;
    auto* copy = static_cast<char*>(system_malloc(size));
    if (copy == nullptr)
        out_of_memory("estrdup failed to allocate memory.");
    memcpy(copy, text, size);
    return copy;
}

static void tell_freed(void* block) {
    if (const auto freed = freedHook.load(std::memory_order_relaxed); freed != nullptr)
        freed(block);
    count_blocks(-1);
}

void efree(void* block) {
    if (block == nullptr)
        return;
    tell_freed(block);
    free(block);
}

void* egrow(void* block, size_t newSize, size_t oldSize) {
    if (newSize <= oldSize)
        return block;
    void* grown = emalloc(newSize);
    if (block != nullptr) {
        memcpy(grown, block, oldSize);
        wipe_bytes(block, oldSize);
        efree(block);
    }
    return grown;
}

void* try_calloc(size_t size) {
    return system_calloc(size);
}

long live_blocks() {
    long sum = 0;
    for (const CountPart& part : liveBlocks)
        sum += part.blocks.load(std::memory_order_relaxed);
    return sum;
}

void memory_set_hooks(MemoryHooks hooks) {
    refuseHook.store(hooks.refuse, std::memory_order_relaxed);
    freedHook.store(hooks.freed, std::memory_order_relaxed);
}

void SecretBuffer::append(const void* bytes, size_t size) {
    if (size >= capacity_ - size_) {
        const size_t wanted = size_ + size + 1;
        const size_t capacity =
            capacity_ > wanted / 2 && capacity_ < kMaxAllocation / 2 ? 2 * capacity_ : wanted;
        SecretBuffer grown(capacity);
        if (size_ != 0)
            memcpy(grown.data_, data_, size_);
        grown.size_ = size_;
        *this = std::move(grown);
    }
    if (size != 0)
        memcpy(data_ + size_, bytes, size);
    size_ += size;
    data_[size_] = 0;
}

SecretPages::SecretPages(size_t size)
    : pages_(is_refused(size) ? nullptr : platform::pages_take(size)), size_(size) {
    if (pages_ != nullptr)
        count_blocks(1);
}

SecretPages::~SecretPages() {
    if (pages_ == nullptr)
        return;
    wipe_bytes(pages_, size_);
    tell_freed(pages_);
    platform::pages_give(pages_, size_);
}

} // namespace zul
