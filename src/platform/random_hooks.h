#pragma once
#include <cstddef>
#include <cstdint>

namespace zul::platform {

// Where system_random gets its bytes, in the order in which it tries.
enum class RandomSource { systemCall, device };

// random_from reads from one source; false if the system does not have it.
bool random_from(RandomSource source, void* out, size_t size);

// The seam for tests of randomness: refuse is asked before each read of a source and makes it fail; drawn
// sees the bytes and may replace them. Not exported by the module.
struct RandomHooks {
    bool (*refuse)(RandomSource source) = nullptr;
    void (*drawn)(uint8_t* bytes, size_t size) = nullptr;
};

void random_set_hooks(RandomHooks hooks);

} // namespace zul::platform
