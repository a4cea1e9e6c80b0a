#pragma once
#include <atomic>

namespace zul {

// Switches for output of the library's developers on standard output. The output holds secrets, so no export
// sets them.
struct DebugOutput {
    std::atomic<int> values{0};     // key generation: 1 sizes, 2 every value
    std::atomic<int> structures{0}; // not 0: key structures as they are read or written, steps of encryption
};
inline DebugOutput debugOutput;

} // namespace zul
