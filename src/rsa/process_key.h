#pragma once
#include "frame/wipe.h"

namespace zul {

// The Triple DES key under which this process's key strings are protected.
constexpr size_t kProcessKey = 24;

// process_key gives a copy; the first call makes the key. A generator that fails ends the process.
void process_key(Secret<kProcessKey>& key);

// process_key_forget wipes it: key strings made before can no longer be opened.
void process_key_forget();

} // namespace zul
