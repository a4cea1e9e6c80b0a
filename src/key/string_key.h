#pragma once
#include "frame/wipe.h"

namespace zul {

// The AES-256 key under which this process's key strings of the newer kinds are protected.
constexpr size_t kStringKey = 32;

// string_key gives a copy; the first call makes the key. A generator that fails ends the process.
void string_key(Secret<kStringKey>& key);

// string_key_forget wipes it: no such key string made before can be opened any more.
void string_key_forget();

} // namespace zul
