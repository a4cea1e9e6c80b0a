#include "frame/thread_record.h"

#include "frame/memory.h"
#include "platform/platform.h"

namespace zul {

// Defined by the random generator: hands on what the thread still has to give and wipes the state.
void rng_release_thread(RngState& state);

namespace {

ThreadRecord* table[kRecordTableSize];
RecordTableCounts counts{-1, 0, 0};
ThreadRecord errorFallback, generatorFallback;

void enter(ThreadRecord* record) {
    const platform::LockGuard guard;
    counts.made++;
    for (int i = 0; i < kRecordTableSize; i++) {
        if (table[i] == nullptr) {
            table[i] = record;
            counts.live++;
            if (i > counts.highestIndex)
                counts.highestIndex = i;
            return;
        }
    }
}

void leave(const ThreadRecord* record) {
    const platform::LockGuard guard;
    for (int i = 0; i <= counts.highestIndex; i++) {
        if (table[i] == record) {
            table[i] = nullptr;
            counts.live--;
            return;
        }
    }
}

void destroy(ThreadRecord* record) {
    wipe_bytes(record, sizeof *record);
    efree(record);
}

void at_thread_end(void* value) {
    auto* record = static_cast<ThreadRecord*>(value);
    rng_release_thread(record->rng);
    leave(record);
    destroy(record);
}

__attribute__((noinline)) ThreadRecord* create(RecordPath path) {
    auto* record = static_cast<ThreadRecord*>(try_calloc(sizeof(ThreadRecord)));
    if (record == nullptr || !platform::slot_set(record)) {
        efree(record);
        return path == RecordPath::error ? &errorFallback : &generatorFallback;
    }
    enter(record);
    return record;
}

} // namespace

ThreadRecord* thread_record(RecordPath path) {
    void* value = platform::slot_get();
    return value != nullptr ? static_cast<ThreadRecord*>(value) : create(path);
}

bool is_shared(const RngState* state) {
    return state == &generatorFallback.rng;
}

RecordTableCounts record_table_counts() {
    const platform::LockGuard guard;
    return counts;
}

bool records_create() {
    return platform::slot_create(at_thread_end);
}

void records_destroy() {
    record_release();
    platform::slot_destroy();
    const platform::LockGuard guard;
    for (int i = 0; i <= counts.highestIndex; i++) {
        if (table[i] != nullptr) {
            destroy(table[i]);
            table[i] = nullptr;
            counts.live--;
        }
    }
    wipe_bytes(&errorFallback, sizeof errorFallback);
    wipe_bytes(&generatorFallback, sizeof generatorFallback);
}

void record_release() {
    void* value = platform::slot_get();
    if (value == nullptr)
        return;
    platform::slot_set(nullptr);
    at_thread_end(value);
}

} // namespace zul
