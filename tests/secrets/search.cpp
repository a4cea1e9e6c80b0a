#include "secrets/search.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <initializer_list>
#include <malloc.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "secrets/apart.h"
#include "secrets/arena.h"
#include "secrets/forms.h"

namespace secrets {

namespace {

constexpr size_t kMostSecrets = 1 << 16, kLog = size_t{512} << 20, kSnapshot = size_t{512} << 20;
constexpr size_t kPage = 4096;

struct Piece {
    const uint8_t* copy;
    uintptr_t address;
    size_t size;
    unsigned place;
    char where[64];
};

constexpr size_t kMostPieces = 1 << 18, kMostSeen = 1 << 16, kMostAllowed = 8;

struct State {
    Known known[kMostSecrets];
    size_t knownCount;
    Piece pieces[kMostPieces];
    size_t pieceCount;
    uint8_t* log;
    size_t logUsed;
    size_t witnessed; // the number of known before the call
    uint8_t* snapshot;
    size_t snapshotUsed;
    struct {
        uintptr_t address;
        uint64_t value;
    } seen[kMostSeen];
    size_t seenCount;
    struct {
        uintptr_t begin, end;
    } allowed[kMostAllowed];
    size_t allowedCount;
    char maps[1 << 20];
};

volatile bool watching = false;

State& state() {
    static State* const only = [] {
        auto* made = reinterpret_cast<State*>(take(sizeof(State)));
        made->log = take(kLog);
        made->snapshot = take(kSnapshot);
        return made;
    }();
    return *only;
}

// copy leaves nothing of what it copies in a register or on the stack.
void copy(uint8_t* out, const void* in, size_t size) {
    __asm__ volatile("rep movsb" : "+D"(out), "+S"(in), "+c"(size) : : "memory");
}

uint64_t load(const uint8_t* bytes) {
    uint64_t value;
    memcpy(&value, bytes, sizeof value);
    return value;
}

bool is_zero(const uint8_t* bytes, size_t size) {
    while (size > 0 && *bytes == 0) {
        bytes++;
        size--;
        if (size >= 4096 && (reinterpret_cast<uintptr_t>(bytes) & 7) == 0) {
            const auto* words = reinterpret_cast<const uint64_t*>(bytes);
            size_t i = 0;
            while (i < size / 8 && words[i] == 0)
                i++;
            bytes += 8 * i;
            size -= 8 * i;
        }
    }
    return size == 0;
}

uint8_t* log_copy(const void* bytes, size_t size) {
    State& s = state();
    if (s.logUsed + size + kWindow > kLog)
        give_up("The log is full");
    uint8_t* const at = s.log + s.logUsed;
    copy(at, bytes, size);
    s.logUsed += size + kWindow;
    return at;
}

Piece& add_piece(const uint8_t* bytes, uintptr_t address, size_t size, unsigned place, const char* where) {
    State& s = state();
    if (s.pieceCount == kMostPieces)
        give_up("Too many pieces of memory");
    Piece& piece = s.pieces[s.pieceCount++];
    piece = {bytes, address, size, place, {}};
    snprintf(piece.where, sizeof piece.where, "%s", where);
    return piece;
}

void add_memory(uintptr_t begin, uintptr_t end, const char* name) {
    State& s = state();
    const auto stack = reinterpret_cast<uintptr_t>(apart_stack());
    if (begin == stack) // what was never reached is not touched
        while (begin + kPage < end && is_zero(reinterpret_cast<const uint8_t*>(begin), kPage)) // NOLINT
            begin += kPage;
    if (s.snapshotUsed + (end - begin) + 64 > kSnapshot)
        give_up("Too much memory");
    uint8_t* const at = s.snapshot + s.snapshotUsed;
    memcpy(at, reinterpret_cast<const void*>(begin), end - begin); // NOLINT
    s.snapshotUsed += (end - begin + 63 + kWindow) / 64 * 64;
    const bool isStack = begin < stack + kApartStack && end > stack;
    add_piece(at, begin, end - begin, isStack ? kStack : kMemory, isStack ? "the stack" : name);
}

bool is_allowed(uintptr_t address) {
    const State& s = state();
    for (size_t i = 0; i < s.allowedCount; i++)
        if (address + kWindow > s.allowed[i].begin && address < s.allowed[i].end)
            return true;
    return false;
}

bool is_new(uintptr_t address, uint64_t value) {
    State& s = state();
    for (size_t i = 0; i < s.seenCount; i++)
        if (s.seen[i].address == address && s.seen[i].value == value)
            return false;
    if (s.seenCount < kMostSeen)
        s.seen[s.seenCount++] = {address, value};
    return true;
}

struct Find {
    const char* name = nullptr;
    const char* form = nullptr;
    size_t times = 0, longest = 0, offset = 0;
};

// search_piece prints one line for each secret and form in a piece of memory.
bool search_piece(const Piece& piece, const char* call, const char* variant, bool isExpected) {
    constexpr size_t kMostFinds = 8;
    Find finds[kMostFinds];
    bool any = false;
    for (size_t i = 0; i + kWindow <= piece.size; i++) {
        const uint64_t value = load(piece.copy + i);
        if (value == 0) {
            while (i + 2 * kWindow <= piece.size && load(piece.copy + i + kWindow) == 0)
                i += kWindow;
            continue;
        }
        const Window* const window = find_window(piece.copy + i, piece.size - i);
        if (window == nullptr || is_allowed(piece.address + i))
            continue;
        size_t length = window->least;
        while (length < window->left && i + length < piece.size &&
               piece.copy[i + length] == window->bytes[length])
            length++;
        const bool isNew = piece.place != kMemory || is_new(piece.address + i, value);
        for (Find& find : finds) {
            if (!isNew || (find.name != nullptr && (find.name != window->name || find.form != window->form)))
                continue;
            if (find.name == nullptr)
                find.offset = i;
            find.name = window->name;
            find.form = window->form;
            find.times++;
            find.longest = length > find.longest ? length : find.longest;
            break;
        }
        any |= isNew;
        i += length - kWindow;
    }
    for (const Find& find : finds)
        if (find.name != nullptr && !isExpected)
            printf("LEFT: %s, %s: %s (%s), %zu bytes, %zu times, in %s, %zu of %zu\n", call, variant,
                   find.name, find.form, find.longest, find.times, piece.where,
                   piece.place == kStack ? piece.size - find.offset : find.offset, piece.size);
    return any;
}

} // namespace

void add_secret(const char* name, const void* bytes, size_t size, unsigned forms) {
    State& s = state();
    if (s.knownCount == kMostSecrets)
        give_up("Too many secrets");
    s.known[s.knownCount++] = {name, static_cast<const uint8_t*>(bytes), size, forms};
}

size_t secret_count() {
    return state().knownCount;
}

void forget_secrets(size_t keep) {
    state().knownCount = keep;
}

void allow(const void* address, size_t size) {
    State& s = state();
    if (s.allowedCount == kMostAllowed)
        give_up("Too much is allowed");
    const auto begin = reinterpret_cast<uintptr_t>(address);
    s.allowed[s.allowedCount++] = {begin, begin + size};
}

void watch() {
    State& s = state();
    // What the last call's probes saw lies in the log, which is written anew.
    size_t kept = 0;
    for (size_t i = 0; i < s.knownCount; i++)
        if (s.known[i].bytes < s.log || s.known[i].bytes >= s.log + kLog)
            s.known[kept++] = s.known[i];
    s.pieceCount = s.logUsed = s.snapshotUsed = 0;
    s.witnessed = s.knownCount = kept;
    watching = true;
}

void unwatch() {
    watching = false;
}

bool is_watching() {
    return watching;
}

void witness(const char* name, const void* bytes, size_t size, unsigned forms) {
    State& s = state();
    if (!watching || size == 0 || s.knownCount == kMostSecrets)
        return;
    // What the program itself asks for may come thousands of times.
    for (size_t i = s.knownCount > s.witnessed + 64 ? s.knownCount - 64 : s.witnessed; i < s.knownCount; i++)
        if (s.known[i].size == size && memcmp(s.known[i].bytes, bytes, size) == 0)
            return;
    add_secret(name, log_copy(bytes, size), size, forms);
}

void take_snapshot(const void* registers, size_t size) {
    State& s = state();
    const int file = open("/proc/self/maps", O_RDONLY);
    size_t length = 0;
    for (ssize_t got = 1; got > 0; length += static_cast<size_t>(got))
        got = read(file, s.maps + length, sizeof s.maps - 1 - length);
    s.maps[length] = '\0';
    close(file);
    uintptr_t arenaBegin, arenaEnd;
    arena_range(&arenaBegin, &arenaEnd);
    for (char* line = s.maps; *line != '\0';) {
        char* const end = strchr(line, '\n');
        *end = '\0';
        uintptr_t first = 0, last = 0;
        char rights[8] = "", name[256] = "";
        sscanf(line, "%lx-%lx %7s %*s %*s %*s %255s", &first, &last, rights, name);
        const bool isMainStack = strcmp(name, "[stack]") == 0;
        const bool isArena = first < arenaEnd && last > arenaBegin;
        if (rights[0] == 'r' && rights[1] == 'w' && !isMainStack && !isArena)
            add_memory(first, last, name[0] != '\0' ? name : "anonymous memory");
        line = end + 1;
    }
    add_piece(static_cast<const uint8_t*>(registers), 0, size, kRegisters, "registers");
}

unsigned search(const char* call, const char* variant, bool isExpected) {
    State& s = state();
    forget_forms();
    for (size_t i = 0; i < s.knownCount; i++)
        add_forms(s.known[i]);
    unsigned places = 0;
    for (size_t i = 0; i < s.pieceCount; i++)
        if (search_piece(s.pieces[i], call, variant, isExpected))
            places |= s.pieces[i].place;
    return places;
}

} // namespace secrets

// These take the place of the C library's functions in the whole program, so that what the standard library
// and the system's functions free is seen too.
extern "C" {
void* __libc_malloc(size_t);
void __libc_free(void*);
void* __libc_realloc(void*, size_t);

static void note_freed(const void* block, size_t size, const char* what) {
    using namespace secrets;
    if (!watching || is_in_arena(block) || is_zero(static_cast<const uint8_t*>(block), size))
        return;
    add_piece(log_copy(block, size), 0, size, kFreed, what);
}

void free(void* block) { // NOLINT
    if (block != nullptr)
        note_freed(block, malloc_usable_size(block), "a freed block");
    __libc_free(block);
}

void* realloc(void* block, size_t size) { // NOLINT
    if (!secrets::is_watching() || block == nullptr)
        return __libc_realloc(block, size);
    void* const grown = __libc_malloc(size);
    if (grown == nullptr)
        return nullptr;
    const size_t old = malloc_usable_size(block);
    memcpy(grown, block, old < size ? old : size);
    free(block);
    return grown;
}

int munmap(void* address, size_t size) { // NOLINT
    note_freed(address, size, "a returned mapping");
    return static_cast<int>(syscall(SYS_munmap, address, size));
}
}
