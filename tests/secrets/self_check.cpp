// Leaks made on purpose, of which every one has to be found in its kind of place.
#include <cstdlib>
#include <cstring>
#include <sys/mman.h>

#include "cipher/aes.h"
#include "secrets/secrets_test.h"

namespace secrets {

namespace {

constexpr size_t kSize = 40;
const Byte* secret = nullptr;
Byte inData[256], *kept = nullptr;
thread_local Byte inThread[64];

// put copies with no trace elsewhere.
void put(Byte* out, size_t from, size_t size) {
    const Byte* in = secret + from;
    __asm__ volatile("rep movsb" : "+D"(out), "+S"(in), "+c"(size) : : "memory");
}

int in_freed_block() {
    auto* block = static_cast<Byte*>(malloc(100));
    put(block + 33, 0, kSize);
    free(block);
    return 0;
}
int in_heap() {
    kept = static_cast<Byte*>(malloc(100));
    put(kept + 33, 0, kSize);
    return 0;
}
int in_grown_block() {
    auto* block = static_cast<Byte*>(malloc(100));
    put(block, 0, kSize);
    free(realloc(block, 1000)); // NOLINT
    return 0;
}
int in_returned_mapping() {
    void* const page = mmap(nullptr, 8192, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    put(static_cast<Byte*>(page) + 5000, 3, 8);
    munmap(page, 8192);
    return 0;
}
int in_static_data() {
    put(inData + 3, 11, 8);
    return 0;
}
int in_thread_local() {
    put(inThread + 1, 0, 9);
    return 0;
}
__attribute__((noinline)) int on_stack() {
    Byte copy[64];
    put(copy, 0, kSize);
    __asm__ volatile("" : : "r"(copy) : "memory");
    return 0;
}
int in_register() {
    __asm__ volatile("mov 5(%0), %%r9" : : "r"(secret) : "r9");
    return 0;
}
int in_vector() {
    __asm__ volatile("movdqu (%0), %%xmm13" : : "r"(secret) : "xmm13");
    return 0;
}
int in_high_vector() {
    if (__builtin_cpu_supports("avx512f") != 0)
        __asm__ volatile("vmovdqu64 (%0), %%zmm29" : : "r"(secret));
    else
        in_vector();
    return 0;
}
int in_mask() {
    if (__builtin_cpu_supports("avx512bw") != 0)
        __asm__ volatile("kmovq 1(%0), %%k5" : : "r"(secret));
    else
        in_vector();
    return 0;
}
int in_x87() {
    __asm__ volatile("movq 2(%0), %%mm3" : : "r"(secret) : "mm3");
    return 0;
}

template<class Change>
int changed(Change change, size_t size = kSize) {
    for (size_t i = 0; i < size; i++)
        inData[i + 1] = change(i);
    return 0;
}
Byte hex_digit(size_t i) {
    return static_cast<Byte>("0123456789abcdef"[secret[i / 2] >> (i % 2 == 0 ? 4 : 0) & 15]);
}
int as_reversed() {
    return changed([](size_t i) { return secret[kSize - 1 - i]; });
}
int as_words() {
    return changed([](size_t i) { return secret[i ^ 3]; });
}
int as_outer_pad() {
    return changed([](size_t i) { return static_cast<Byte>(secret[i] ^ 0x5C); });
}
int as_hex() {
    return changed(hex_digit);
}
int as_base64() {
    return CNV_B64StrFromBytes(reinterpret_cast<char*>(inData), 200, secret + 1, kSize - 1) > 0 ? 0 : 1;
}
int as_wide_text() {
    return changed([](size_t i) { return i % 2 == 0 ? Byte{0} : secret[i / 2]; });
}
int as_digits() {
    uint64_t digit = 0;
    for (size_t i = 0; i < 52; i++)
        digit |= (uint64_t{secret[kSize - 1 - (52 + i) / 8]} >> (52 + i) % 8 & 1) << i;
    memcpy(inData, &digit, sizeof digit);
    return 0;
}
int as_round_keys() {
    static zul::AesKey key;
    const int result = zul::aes_set_key(key, secret, 16) ? 0 : 1;
    memcpy(inData, key.encrypt[5], 3 * zul::kAesBlock);
    memset(&key, 0, sizeof key);
    return result;
}
constexpr struct {
    const char* what;
    int (*leak)();
    unsigned place;
} kLeaks[] = {
    {"a freed block", in_freed_block, kFreed | kMemory},
    {"the heap", in_heap, kMemory},
    {"a block that grew", in_grown_block, kFreed},
    {"a returned mapping", in_returned_mapping, kFreed},
    {"static data", in_static_data, kMemory},
    {"thread-local data", in_thread_local, kMemory},
    {"the stack", on_stack, kStack},
    {"a general register", in_register, kRegisters},
    {"a vector register", in_vector, kRegisters},
    {"a high vector register", in_high_vector, kRegisters},
    {"a mask register", in_mask, kRegisters},
    {"an x87 register", in_x87, kRegisters},
    {"reversed", as_reversed, kMemory},
    {"as words", as_words, kMemory},
    {"as outer pad", as_outer_pad, kMemory},
    {"as hex", as_hex, kMemory},
    {"as base64", as_base64, kMemory},
    {"as wide text", as_wide_text, kMemory},
    {"as digits", as_digits, kMemory},
    {"as round keys", as_round_keys, kMemory},
};

} // namespace

void self_check() {
    for (const auto& leak : kLeaks) {
        fresh();
        secret = plant("a leak", kSize, kNumber | kText);
        call_apart(
            {leak.what, "on purpose", 0},
            [](void* function) { return reinterpret_cast<int (*)()>(function)(); },
            reinterpret_cast<void*>(leak.leak));
        report_leaks_expected(leak.what, leak.place);
        free(kept);
        kept = nullptr;
        memset(inData, 0, sizeof inData);
        memset(inThread, 0, sizeof inThread);
    }
}

} // namespace secrets
