#include "secrets/forms.h"

#include <cstdio>
#include <cstring>
#include <initializer_list>
#include <unistd.h>

#include "secrets/arena.h"
#include "secrets/search.h"

namespace secrets {

namespace {

constexpr size_t kTableBits = 20, kBloomBits = 22, kLeastDistinct = 5;

struct State {
    Window table[size_t{1} << kTableBits];
    uint32_t tableUsed[(size_t{1} << kTableBits) / 2];
    size_t tableCount;
    uint64_t bloom[(size_t{1} << kBloomBits) / 64];
    uint8_t forms[64 << 20]; // bytes of the forms
    size_t formsUsed;
};

State& state() {
    static State* const only = reinterpret_cast<State*>(take(sizeof(State)));
    return *only;
}

size_t distinct(const uint8_t* bytes, size_t size) {
    uint64_t bits[4] = {};
    for (size_t i = 0; i < size; i++)
        bits[bytes[i] / 64] |= uint64_t{1} << bytes[i] % 64;
    size_t count = 0;
    for (const uint64_t word : bits)
        count += static_cast<size_t>(__builtin_popcountll(word));
    return count;
}

uint64_t load(const uint8_t* bytes) {
    uint64_t value;
    memcpy(&value, bytes, sizeof value);
    return value;
}
uint64_t mix(uint64_t value) {
    return value * 0x9E3779B97F4A7C15;
}

void add_window(const Known& secret, const char* form, const uint8_t* bytes, size_t left, size_t least) {
    State& s = state();
    if (left < least || distinct(bytes, least) < kLeastDistinct)
        return;
    const uint64_t value = load(bytes), hash = mix(value);
    size_t at = hash >> (64 - kTableBits);
    while (s.table[at].value != 0) {
        if (s.table[at].value == value && s.table[at].least <= least)
            return;
        at = (at + 1) % (size_t{1} << kTableBits);
    }
    if (s.tableCount == sizeof s.tableUsed / sizeof s.tableUsed[0])
        give_up("Too many windows");
    s.tableUsed[s.tableCount++] = static_cast<uint32_t>(at);
    s.table[at] = {value,       bytes, static_cast<uint32_t>(left), static_cast<uint32_t>(least),
                   secret.name, form};
    const uint64_t bit = hash >> (64 - kBloomBits);
    s.bloom[bit / 64] |= uint64_t{1} << bit % 64;
}

uint8_t* form_bytes(size_t size) {
    State& s = state();
    if (s.formsUsed + size > sizeof s.forms)
        give_up("Too many forms");
    uint8_t* const bytes = s.forms + s.formsUsed;
    s.formsUsed += size;
    return bytes;
}

void add_windows(const Known& secret, const char* form, const uint8_t* bytes, size_t size,
                 size_t least = kWindow) {
    for (size_t i = 0; i + least <= size; i++)
        add_window(secret, form, bytes + i, size - i, least);
}

// transformed makes a form byte by byte.
template<class Change>
void add_form(const Known& secret, const char* form, Change change) {
    uint8_t* const bytes = form_bytes(secret.size);
    for (size_t i = 0; i < secret.size; i++)
        bytes[i] = change(i);
    add_windows(secret, form, bytes, secret.size);
}

void add_written(const Known& secret) {
    for (const char* digits : {"0123456789abcdef", "0123456789ABCDEF"}) {
        uint8_t* const hex = form_bytes(2 * secret.size);
        for (size_t i = 0; i < 2 * secret.size; i++)
            hex[i] = static_cast<uint8_t>(digits[secret.bytes[i / 2] >> (i % 2 == 0 ? 4 : 0) & 15]);
        add_windows(secret, "hex", hex, 2 * secret.size, 2 * kWindow);
    }
    static constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    for (size_t skip = 0; skip < 3; skip++) {
        const size_t groups = secret.size > skip ? (secret.size - skip) / 3 : 0;
        uint8_t* const text = form_bytes(4 * groups);
        for (size_t i = 0; i < groups; i++) {
            const uint8_t* in = secret.bytes + skip + 3 * i;
            const uint32_t bits = uint32_t{in[0]} << 16 | uint32_t{in[1]} << 8 | in[2];
            for (size_t j = 0; j < 4; j++)
                text[4 * i + j] = static_cast<uint8_t>(kAlphabet[bits >> (18 - 6 * j) & 63]);
        }
        add_windows(secret, "base64", text, 4 * groups, 12);
    }
}

void add_digits(const Known& secret) {
    const auto bit = [&](size_t i) {
        return i / 8 < secret.size ? uint64_t{secret.bytes[secret.size - 1 - i / 8]} >> i % 8 & 1 : 0;
    };
    for (const size_t width : {size_t{51}, size_t{52}, size_t{58}, size_t{62}}) {
        const size_t count = 8 * secret.size / width;
        uint8_t* const digits = form_bytes(8 * count);
        for (size_t i = 0; i < count; i++) {
            uint64_t digit = 0;
            for (size_t j = 0; j < width; j++)
                digit |= bit(i * width + j) << j;
            memcpy(digits + 8 * i, &digit, 8);
            add_window(secret, "digits", digits + 8 * i, 8, kWindow);
        }
    }
}

} // namespace

void add_forms(const Known& secret) {
    const uint8_t* const bytes = secret.bytes;
    const size_t size = secret.size;
    add_windows(secret, "itself", bytes, size);
    if ((secret.forms & kReversed) != 0) {
        add_form(secret, "reversed", [&](size_t i) { return bytes[size - 1 - i]; });
        // Words may begin anywhere, so each window is one of its own.
        for (size_t at = 0; at + kWindow <= size; at++) {
            uint8_t* const words = form_bytes(kWindow);
            for (size_t i = 0; i < kWindow; i++)
                words[i] = bytes[at + (i ^ 3)];
            add_window(secret, "words", words, kWindow, kWindow);
        }
    }
    if ((secret.forms & kMacKey) != 0) {
        add_form(secret, "inner pad", [&](size_t i) { return static_cast<uint8_t>(bytes[i] ^ 0x36); });
        add_form(secret, "outer pad", [&](size_t i) { return static_cast<uint8_t>(bytes[i] ^ 0x5C); });
    }
    if ((secret.forms & kWritten) != 0)
        add_written(secret);
    if ((secret.forms & kDigits) != 0)
        add_digits(secret);
    if ((secret.forms & kWideText) != 0) {
        uint8_t* const wide = form_bytes(2 * size);
        for (size_t i = 0; i < size; i++) {
            wide[2 * i] = 0;
            wide[2 * i + 1] = bytes[i];
        }
        add_windows(secret, "wide text", wide, 2 * size, 2 * kWindow);
    }
}

void forget_forms() {
    State& s = state();
    for (size_t i = 0; i < s.tableCount; i++)
        s.table[s.tableUsed[i]].value = 0;
    memset(s.bloom, 0, sizeof s.bloom);
    s.tableCount = s.formsUsed = 0;
}

const Window* find_window(const uint8_t* at, size_t left) {
    const State& s = state();
    const uint64_t value = load(at), hash = mix(value);
    const uint64_t bit = hash >> (64 - kBloomBits);
    if ((s.bloom[bit / 64] >> bit % 64 & 1) == 0)
        return nullptr;
    size_t place = hash >> (64 - kTableBits);
    for (; s.table[place].value != 0; place = (place + 1) % (size_t{1} << kTableBits)) {
        const Window& window = s.table[place];
        if (window.value == value && window.least <= left && memcmp(window.bytes, at, window.least) == 0)
            return &window;
    }
    return nullptr;
}

void give_up(const char* what) {
    fprintf(stderr, "%s\n", what);
    _exit(3);
}

} // namespace secrets
