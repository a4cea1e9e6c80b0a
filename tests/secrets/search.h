#pragma once
#include <cstddef>
#include <cstdint>

// The search for secrets in whatever a call has left behind.
namespace secrets {

// In which forms a secret is looked for. Each is cut into overlapping windows of 8 bytes, of which one is
// enough.
enum Forms : unsigned {
    kAsItIs = 1,    // and nothing else: structures of expanded keys
    kReversed = 2,  // all bytes, as little-endian numbers have it, and the four bytes of each word
    kWritten = 4,   // in hex and base64
    kMacKey = 8,    // XORed with the constants of HMAC
    kDigits = 16,   // a big-endian number in digits of 51, 52, 58 and 62 bits
    kWideText = 32, // characters of two bytes
    kKey = kAsItIs | kReversed | kWritten | kMacKey,
    kNumber = kKey | kDigits,
    kText = kKey | kWideText,
};

// The secrets that are looked for. Bytes stay where they are, in the arena or in the log.
void add_secret(const char* name, const void* bytes, size_t size, unsigned forms);
size_t secret_count();
void forget_secrets(size_t keep); // all but the first

// Memory that may hold secrets: the generator's state and the like.
void allow(const void* address, size_t size);

// watch notes, until unwatch, what every freed block and returned mapping holds, and what the probes see.
void watch();
void unwatch();
bool is_watching();
// witness adds bytes that a probe sees inside a call to the secrets of that call.
void witness(const char* name, const void* bytes, size_t size, unsigned forms);

// take_snapshot copies all writable memory but the arena and the stack of main; registers are named beside
// it.
void take_snapshot(const void* registers, size_t size);

// search looks at the snapshot and at what was noted. It prints what it has not printed before and returns
// the kinds of places where something was found.
enum Place : unsigned { kFreed = 1, kMemory = 2, kStack = 4, kRegisters = 8 };
unsigned search(const char* call, const char* variant, bool isExpected);

} // namespace secrets
