#pragma once
#include <cstddef>
#include <cstdint>

// The forms of the secrets that are looked for, cut into windows and kept so that they are found fast.
namespace secrets {

constexpr size_t kWindow = 8;

struct Known {
    const char* name;
    const uint8_t* bytes;
    size_t size;
    unsigned forms;
};

// A place in a form of a secret. Text tells less in each byte, so more of them have to be there.
struct Window {
    uint64_t value; // 0: free
    const uint8_t* bytes;
    uint32_t left, least;
    const char* name;
    const char* form;
};

void forget_forms();
void add_forms(const Known& secret);
// find_window gives the window that begins at some bytes of memory; null for none.
const Window* find_window(const uint8_t* at, size_t left);

[[noreturn]] void give_up(const char* what);

} // namespace secrets
