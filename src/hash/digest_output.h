#pragma once
#include <cstdint>

// How a finished digest or MAC leaves the library.
namespace zul {

// digest_result writes the first outMax bytes of a digest and returns how many; its length if out is null or
// outMax below 1.
int digest_result(uint8_t* out, int outMax, const uint8_t* digest, int length);

// digest_hex_result writes the first bytes of a digest as pairs of lower-case digits, as many whole pairs as
// outChars characters hold, and a NUL, and returns the characters written; twice the digest's length if out
// is null or outChars below 1.
int digest_hex_result(char* out, int outChars, const uint8_t* digest, int length);

} // namespace zul
