#include "module/power_up_tests.h"

#include <cstring>

#include "cipher/tdes.h"
#include "frame/fatal_report.h"
#include "frame/wipe.h"
#include "hash/digest.h"
#include "hash/hmac.h"
#include "module/integrity.h"
#include "module/known_answers.h"
#include "platform/platform.h"
#include "rng/rng.h"
#include "rsa/rsa_pairwise.h"
#include "zulcore.h"

namespace zul {

namespace {

constexpr uint32_t kEventKnownAnswers = 0xC0001F40;
constexpr uint32_t kEventIntegrity = 0xC0001F41;
constexpr uint32_t kEventHealthCheck = 0xC0001F42;
constexpr uint32_t kEventFirstTest = 0xC0001F00; // the tests' own events follow each other

void report(const char* message, uint32_t eventId) {
    fatal_report(static_cast<int>(platform::ReportType::error), message, eventId);
}

// tdes_gives checks Copies copies of the known answer: ECB encrypts every copy alike.
template<size_t Copies>
bool tdes_gives(const TdesKey& key) {
    constexpr size_t kSize = TdesAnswer::kSize, kBlocks = Copies * kSize / 8;
    uint8_t plain[Copies * kSize], cipher[Copies * kSize], found[Copies * kSize];
    for (size_t at = 0; at < sizeof plain; at += kSize) {
        memcpy(plain + at, kTdesAnswer.plaintext, kSize);
        memcpy(cipher + at, kTdesAnswer.ciphertext, kSize);
    }
    tdes_ecb_encrypt(key, found, plain, kBlocks);
    if (memcmp(found, cipher, sizeof found) != 0)
        return false;
    tdes_ecb_decrypt(key, found, found, kBlocks);
    return memcmp(found, plain, sizeof found) == 0;
}

// Tests one block after the other, and every lane of the widest kernel for many blocks.
bool tdes_holds(int) {
    constexpr size_t kForEveryLane = 171; // 513 blocks
    Wiped<TdesKey> key;
    tdes_set_key(*key, kTdesAnswer.key);
    return tdes_gives<1>(*key) && tdes_gives<kForEveryLane>(*key);
}

// bulk_agrees compares the digest of many blocks given at once with that of the same blocks given one by one:
// some kernels work on eight blocks side by side.
bool bulk_agrees(int algorithm, const char* message) {
    const size_t length = strlen(message);
    constexpr size_t kCopies = 11, kLongest = 112;
    uint8_t all[kCopies * kLongest];
    DigestContext parts, whole;
    if (length > kLongest)
        return false;
    digest_init(parts, algorithm);
    digest_init(whole, algorithm);
    for (size_t i = 0; i < kCopies; i++) {
        memcpy(all + i * length, message, length);
        digest_update(parts, message, length);
    }
    digest_update(whole, all, kCopies * length);
    uint8_t ofParts[kMaxDigestSize], ofWhole[kMaxDigestSize];
    const int size = digest_final(parts, ofParts);
    return digest_final(whole, ofWhole) == size && memcmp(ofParts, ofWhole, static_cast<size_t>(size)) == 0;
}

bool digest_holds(int algorithm) {
    uint8_t digest[kMaxDigestSize];
    for (const DigestAnswer& answer : kDigestAnswers) {
        if (answer.algorithm != algorithm)
            continue;
        const int size = hash_bytes(digest, sizeof digest, answer.message,
                                    static_cast<int64_t>(strlen(answer.message)), algorithm);
        return size > 0 && memcmp(digest, answer.digest, static_cast<size_t>(size)) == 0 &&
               (algorithm == kDigestMd2 ||
                bulk_agrees(algorithm, answer.message)); // MD2 is slow and has one kernel
    }
    return false;
}

bool mac_is(const uint8_t* expected, const char* message, const void* key, size_t keyLen, int algorithm) {
    uint8_t mac[kMaxDigestSize];
    const int size = hmac_bytes(mac, sizeof mac, message, strlen(message), key, keyLen, algorithm);
    return size > 0 && memcmp(mac, expected, static_cast<size_t>(size)) == 0;
}

bool hmac_holds(int algorithm) {
    constexpr char kShortKey[] = "Jefe";
    uint8_t longKey[2 * kMaxDigestBlockSize];
    memset(longKey, 0xAA, sizeof longKey);
    for (const HmacAnswer& answer : kHmacAnswers) {
        if (answer.algorithm == algorithm)
            return mac_is(answer.shortMac, "what do ya want for nothing?", kShortKey, strlen(kShortKey),
                          algorithm) &&
                   mac_is(answer.longMac, answer.longMessage, longKey, answer.longKeyBytes, algorithm);
    }
    return false;
}

// The pair-wise test needs no random numbers: the generator has not been checked yet.
bool rsa_holds(int) {
    const RsaTestKey& test = kRsaTestKey;
    RsaKey key;
    mtSetShort(key.e, 65537);
    mtConvFromOctets(key.n, test.n, sizeof test.n);
    mtConvFromOctets(key.d, test.d, sizeof test.d);
    mtConvFromOctets(key.p, test.p, sizeof test.p);
    mtConvFromOctets(key.q, test.q, sizeof test.q);
    mtConvFromOctets(key.dP, test.dP, sizeof test.dP);
    mtConvFromOctets(key.dQ, test.dQ, sizeof test.dQ);
    mtConvFromOctets(key.qInv, test.qInv, sizeof test.qInv);
    key.bits = mtBitLength(key.n);
    key.flags = kRsaPublic | kRsaPrivate | kRsaCrt;
    return rsaPairwiseTest(&key) == 0;
}

struct KnownAnswerTest {
    bool (*holds)(int algorithm);
    int algorithm;
    const char* message; // of a failure
};

constexpr KnownAnswerTest kTests[] = {
    {tdes_holds, 0, "Failed Known Answer Test for Triple DES"},
    {digest_holds, kDigestSha1, "Failed Known Answer Test for SHA-1"},
    {digest_holds, kDigestSha256, "Failed Known Answer Test for SHA-256"},
    {digest_holds, kDigestSha384, "Failed Known Answer Test for SHA-384"},
    {digest_holds, kDigestSha512, "Failed Known Answer Test for SHA-512"},
    {digest_holds, kDigestSha224, "Failed Known Answer Test for SHA-224"},
    {digest_holds, kDigestMd5, "Failed Known Answer Test for MD5"},
    {digest_holds, kDigestMd2, "Failed Known Answer Test for MD2"},
    {hmac_holds, kDigestSha1, "Failed Known Answer Test for HMAC-SHA-1"},
    {hmac_holds, kDigestSha256, "Failed Known Answer Test for HMAC-SHA-256"},
    {hmac_holds, kDigestSha384, "Failed Known Answer Test for HMAC-SHA-384"},
    {hmac_holds, kDigestSha512, "Failed Known Answer Test for HMAC-SHA-512"},
    {hmac_holds, kDigestSha224, "Failed Known Answer Test for HMAC-SHA-224"},
    {hmac_holds, kDigestMd5, "Failed Known Answer Test for HMAC-MD5"},
    {rsa_holds, 0, "Failed Pair-wise Consistency Test for RSA on power-up"},
};

} // namespace

bool known_answers_hold() {
    uint32_t eventId = kEventFirstTest;
    for (const KnownAnswerTest& test : kTests) {
        eventId++;
        if (!test.holds(test.algorithm)) {
            report(test.message, eventId);
            return false;
        }
    }
    return true;
}

bool integrity_holds() {
    if (module_is_intact())
        return true;
    report("Software self-integrity test failed. Cryptographic services are not available", kEventIntegrity);
    return false;
}

bool power_up_tests_pass() {
    if (!known_answers_hold()) {
        report("Failed power-up tests. Cryptographic services are not available", kEventKnownAnswers);
        return false;
    }
    if (rng_health_check() != 0) {
        report("PRNG health check failed. Cryptographic services are not available", kEventHealthCheck);
        return false;
    }
    return true;
}

bool power_up_tests_again() {
    const bool isIntact = module_is_intact();
    const bool answersHold = known_answers_hold();
    const bool isHealthy = rng_health_check() == 0;
    return isIntact && answersHold && isHealthy;
}

} // namespace zul
