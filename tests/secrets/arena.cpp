#include "secrets/arena.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <initializer_list>
#include <sys/mman.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

namespace secrets {

namespace {

constexpr size_t kArena = size_t{4} << 30; // of which only what is touched exists
uint8_t* begin = nullptr;
size_t used = 0;

[[noreturn]] void give_up(const char* what) {
    perror(what);
    _exit(3);
}

} // namespace

void arena_make() {
    void* const memory =
        mmap(nullptr, kArena, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (memory == MAP_FAILED)
        give_up("mmap");
    begin = static_cast<uint8_t*>(memory);
}

uint8_t* take(size_t size) {
    uint8_t* const block = begin + used;
    used += (size + 64 + 63) / 64 * 64;
    if (used > kArena)
        give_up("The arena is full");
    return block;
}

bool is_in_arena(const void* address) {
    const auto* byte = static_cast<const uint8_t*>(address);
    return byte >= begin && byte < begin + kArena;
}

void arena_range(uintptr_t* first, uintptr_t* last) {
    *first = reinterpret_cast<uintptr_t>(begin);
    *last = *first + kArena;
}

void fill_random(uint8_t* out, size_t size) {
    while (size > 0) {
        const size_t part = size < 256 ? size : 256;
        if (getrandom(out, part, 0) != static_cast<ssize_t>(part))
            give_up("getrandom");
        out += part;
        size -= part;
    }
}

char* random_text(size_t size) {
    static constexpr char kLetters[] = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789+-";
    uint8_t* const text = take(size + 1);
    fill_random(text, size);
    for (size_t i = 0; i < size; i++)
        text[i] = static_cast<uint8_t>(kLetters[text[i] % 64]);
    return reinterpret_cast<char*>(text);
}

const char* write_file(const char* name, const void* bytes, size_t size) {
    unlink(name);
    const int file = open(name, O_WRONLY | O_CREAT | O_TRUNC, 0600);
    if (file < 0 || write(file, bytes, size) != static_cast<ssize_t>(size))
        give_up(name);
    close(file);
    return name;
}

uint8_t* read_file(const char* name, size_t* size) {
    const int file = open(name, O_RDONLY);
    struct stat status {};
    if (file < 0 || fstat(file, &status) != 0)
        give_up(name);
    *size = static_cast<size_t>(status.st_size);
    uint8_t* const bytes = take(*size + 1);
    if (read(file, bytes, *size) != status.st_size)
        give_up(name);
    close(file);
    return bytes;
}

char* joined(const char* a, const char* b, const char* c) {
    auto* const text = reinterpret_cast<char*>(take(strlen(a) + strlen(b) + strlen(c) + 1));
    char* out = text;
    for (const char* part : {a, b, c})
        for (; *part != '\0'; part++)
            *out++ = *part;
    return text;
}

} // namespace secrets
