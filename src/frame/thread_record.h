#pragma once
#include <cstdint>

#include "frame/rng_state.h"

namespace zul {

constexpr int kErrorTextSize = 512; // 511 characters and the NUL
constexpr int kTimeTextSize = 32;

// What each thread that calls into the library owns: created zero-filled on its first need, freed when the
// thread ends or the module is unloaded.
struct ThreadRecord {
    char errorText[kErrorTextSize];
    int32_t errorCode;            // 0 or positive
    char timeText[kTimeTextSize]; // what asn_TimeString returned last
    RngState rng;
};

// Two callers create records. Each has a static record that all threads share, which it uses when memory runs
// out.
enum class RecordPath { error, generator };

// thread_record gives the calling thread's record; never null.
ThreadRecord* thread_record(RecordPath path);

inline RngState* rng_state() {
    return &thread_record(RecordPath::generator)->rng;
}

// is_shared tells whether a generator is in the shared record. Its use needs Lock::generator.
bool is_shared(const RngState* state);

// The records of all threads are kept in a table of this many places, so that unloading can free them. A
// record that finds the table full is used but not entered, and leaks if its thread outlives the module.
constexpr int kRecordTableSize = 1088;

struct RecordTableCounts {
    int highestIndex; // ever used; -1 before the first
    long live;
    long made;
};
RecordTableCounts record_table_counts();

// records_create takes the thread slot, false if the system has none; records_destroy frees every record in
// the table and returns the slot.
[[nodiscard]] bool records_create();
void records_destroy();

// record_release frees the calling thread's record, as happens by itself when a thread ends.
void record_release();

} // namespace zul
