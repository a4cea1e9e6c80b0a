#pragma once
#include "cipher/tdes.h"
#include "frame/wipe.h"

namespace zul {

// process_key gives a copy of the Triple DES key under which this process's key strings are protected; the
// first call makes the key. It is kept ready for use. A generator that fails ends the process.
void process_key(Wiped<TdesKey>& key);

// process_key_forget wipes it: key strings made before can no longer be opened.
void process_key_forget();

} // namespace zul
