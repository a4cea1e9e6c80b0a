#pragma once
#include <cstddef>
#include <cstdint>

// The expected results of the tests at power-up: published examples of the standards.
namespace zul {

struct TdesAnswer {
    static constexpr size_t kSize = 24;
    uint8_t key[24];
    char plaintext[kSize + 1];
    uint8_t ciphertext[kSize]; // in ECB mode
};
extern const TdesAnswer kTdesAnswer;

struct DigestAnswer {
    int algorithm;
    const char* message;
    uint8_t digest[64];
};
constexpr size_t kDigestAnswerCount = 7;
extern const DigestAnswer kDigestAnswers[kDigestAnswerCount];

// Two MACs: with the key "Jefe" of "what do ya want for nothing?", and with a key of longKeyBytes times 0xAA,
// longer than a block, of a message longer than a block.
struct HmacAnswer {
    int algorithm;
    uint8_t shortMac[64];
    size_t longKeyBytes;
    const char* longMessage;
    uint8_t longMac[64];
};
constexpr size_t kHmacAnswerCount = 6;
extern const HmacAnswer kHmacAnswers[kHmacAnswerCount];

// A key used for the RSA test alone: 1024 bits, e = 65537; the numbers are big-endian.
struct RsaTestKey {
    uint8_t n[128], d[128], p[64], q[64], dP[64], dQ[64], qInv[64];
};
extern const RsaTestKey kRsaTestKey;

} // namespace zul
