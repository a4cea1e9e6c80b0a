#pragma once
#include <string>

// The sizes at which whatever takes data of any length is measured.
struct BenchSize {
    std::string suffix; // of a row's name
    int bytes;
};
inline const BenchSize bench_sizes[] = {
    {", 64 bytes", 64}, {", 1 KiB", 1 << 10}, {", 16 KiB", 1 << 14}, {", 1 MiB", 1 << 20}};
