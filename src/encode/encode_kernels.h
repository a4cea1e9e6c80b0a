#pragma once
#include <cstddef>
#include <cstdint>

#include "platform/cpu.h"
#include "platform/target.h"

// Kernels of hex and base64 do the front of a text in whole vectors and say how far they came; the portable
// code does the rest. Each may be called only where has_vector_encoding() holds.
namespace zul {

#if ZUL_X86_64
inline bool has_vector_encoding() {
    return cpu_has(kCpuAvx2);
}

// The encoders give the bytes that they encoded.
size_t hex_encode_avx2(char* out, const uint8_t* data, size_t len, const char digits[16]);
size_t b64_encode_avx2(char* out, const uint8_t* data, size_t len);

// The decoders read characters up to the first vector that has one outside the alphabet, and give the
// characters that they decoded. They write nothing beyond the bytes of these.
size_t hex_decode_avx2(uint8_t* out, const char* text, size_t len);
size_t b64_decode_avx2(uint8_t* out, const char* text, size_t len);

// The counters add the characters of the alphabet to *count and give the characters that they looked at.
size_t hex_count_avx2(size_t* count, const char* text, size_t len);
size_t b64_count_avx2(size_t* count, const char* text, size_t len);
#else
inline bool has_vector_encoding() {
    return false;
}
inline size_t hex_encode_avx2(char*, const uint8_t*, size_t, const char*) {
    return 0;
}
inline size_t b64_encode_avx2(char*, const uint8_t*, size_t) {
    return 0;
}
inline size_t hex_decode_avx2(uint8_t*, const char*, size_t) {
    return 0;
}
inline size_t b64_decode_avx2(uint8_t*, const char*, size_t) {
    return 0;
}
inline size_t hex_count_avx2(size_t*, const char*, size_t) {
    return 0;
}
inline size_t b64_count_avx2(size_t*, const char*, size_t) {
    return 0;
}
#endif

} // namespace zul
