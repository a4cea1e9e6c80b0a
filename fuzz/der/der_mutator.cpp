#include <cstdint>
#include <cstring>

#include "der_mutate.h"

// Linked to a target, these take the place of libFuzzer's built-in mutations.

extern "C" size_t LLVMFuzzerMutate(uint8_t* data, size_t size, size_t maxSize);

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* data, size_t size, size_t maxSize, unsigned seed) {
    std::string input(reinterpret_cast<const char*>(data), size);
    if (!fuzz::der_mutate(input, maxSize, seed))
        return LLVMFuzzerMutate(data, size, maxSize);
    memcpy(data, input.data(), input.size());
    return input.size();
}

extern "C" size_t LLVMFuzzerCustomCrossOver(const uint8_t* data1, size_t size1, const uint8_t* data2,
                                            size_t size2, uint8_t* out, size_t maxOutSize, unsigned seed) {
    std::string input(reinterpret_cast<const char*>(data1), size1);
    if (!fuzz::der_cross_over(input, {reinterpret_cast<const char*>(data2), size2}, maxOutSize, seed))
        return 0;
    memcpy(out, input.data(), input.size());
    return input.size();
}
