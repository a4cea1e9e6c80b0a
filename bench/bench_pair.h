#pragma once
#include <cstddef>
#include <functional>
#include <string>

// A row of the table: the same work done by this library and by a peer.
struct BenchPair {
    std::string name;
    size_t bytesPerCall; // 0: the row is in nanoseconds a call instead of megabytes a second
    std::function<void()> ours;
    std::function<void()> theirs;
};

void bench_register(BenchPair pair);

// A row without a peer: calls of ours per second by two threads at once, against one thread's.
void bench_register_threads(std::string name, std::function<void()> ours);

// A line of the table's head, such as the kernels that would run now. Called once, after the program's start.
void bench_register_note(std::string subject, std::function<std::string()> note);

// BENCH_ROWS { ... } holds a file's registrations. The rows of X_bench.cpp are the group X.
struct BenchRows {
    BenchRows(const char* file, void (*add)());
};
#define BENCH_ROWS                                                                                           \
    static void bench_rows();                                                                                \
    static const BenchRows bench_rows_registered(__FILE__, bench_rows);                                      \
    static void bench_rows()
