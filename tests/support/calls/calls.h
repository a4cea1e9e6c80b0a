#pragma once
#include <vector>

#include "support/calls/world.h"

namespace calls {

// What a call gives when all is well.
enum class Good {
    status, // 0, and a failure is a positive code
    length, // 0 or more, and a failure is a negated code
    value,  // Call::value alone
};

// What a failure may leave of World::target.
enum class Output {
    none,     // it is not written
    removed,  // nothing, or the old file if it was not yet touched
    replaces, // the old file as it was, or nothing if there was none
    pair,     // replaces, and World::second is whole, old or not there
    part,     // what has been written
    inPlace,  // an input too, which is rewritten or wiped; it may be lost, not grow
};

struct Call {
    const char* name; // of the export
    Output output;
    Good good;
    int (*run)(World& w);
    int value = 0;
};

// Every export on valid input.
const std::vector<Call>& every_call();
const std::vector<Call>& data_calls(); // digests, ciphers, random numbers, texts and the library itself
const std::vector<Call>& key_calls();  // keys, certificates, messages and files of keys

bool is_good(const Call& call, int result);

} // namespace calls
