#pragma once
#include <cstddef>
#include <cstdint>

// All that this program itself knows of secrets lies in one mapping, the arena, or on the stack of main, so
// that neither is taken for a leak. The arena is shared with the process that types at the terminal.
namespace secrets {

void arena_make();
uint8_t* take(size_t size); // zeroed, never given back
bool is_in_arena(const void* address);
void arena_range(uintptr_t* begin, uintptr_t* end);

// Random bytes, and random text that looks like a password, straight from the system.
void fill_random(uint8_t* out, size_t size);
char* random_text(size_t size);

// Files without the buffers of a library.
const char* write_file(const char* name, const void* bytes, size_t size); // gives name
uint8_t* read_file(const char* name, size_t* size);

char* joined(const char* a, const char* b, const char* c = "");

} // namespace secrets
