#include <cstdint>
#include <cstring>
#include <string>

#include "der/der_mutate.h"

// The input is a byte and three fields of DER, of which the first two have their lengths in two bytes before
// them: one field is edited, and written with its new length.

extern "C" size_t LLVMFuzzerMutate(uint8_t* data, size_t size, size_t maxSize);

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* data, size_t size, size_t maxSize, unsigned seed) {
    std::string fields[3];
    const std::string input(reinterpret_cast<const char*>(data), size);
    size_t at = 1;
    for (int n = 0; n < 2; n++) {
        if (at + 2 > size)
            return LLVMFuzzerMutate(data, size, maxSize);
        const size_t length = size_t{data[at]} << 8 | data[at + 1];
        fields[n] = input.substr(at + 2, length);
        at += 2 + fields[n].size();
    }
    fields[2] = input.substr(at);
    const unsigned chosen = seed % 7;
    constexpr size_t kMostOfField = 0xFFFF;
    if (chosen == 6 || !fuzz::der_mutate(fields[chosen % 3], kMostOfField, seed / 7))
        return LLVMFuzzerMutate(data, size, maxSize);
    std::string out(1, static_cast<char>(seed % 31 == 0 ? seed >> 8 : data[0]));
    for (int n = 0; n < 2; n++) {
        out += static_cast<char>(fields[n].size() >> 8);
        out += static_cast<char>(fields[n].size());
        out += fields[n];
    }
    out += fields[2];
    if (out.size() > maxSize)
        return LLVMFuzzerMutate(data, size, maxSize);
    memcpy(data, out.data(), out.size());
    return out.size();
}
