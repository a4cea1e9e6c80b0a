#pragma once
#include <atomic>

namespace zul {

// What the library's own developers may have printed on standard output. No export switches these on, since
// the output holds secrets.
struct DebugOutput {
    std::atomic<int> values{0}; // key generation: 1 sizes, 2 every value
    std::atomic<int> structures{
        0}; // nonzero: key structures as they are read or written, steps of encryption
};
inline DebugOutput debugOutput;

} // namespace zul
