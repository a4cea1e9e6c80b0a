#include <algorithm>
#include <array>
#include <cstring>

#include "hash/digest.h"
#include "hash/hmac.h"
#include "module/known_answers.h"

namespace zul {

namespace {

constexpr char kTwoBlocks[] = "abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq";
constexpr char kTwoLongBlocks[] = "abcdefghbcdefghicdefghijdefghijkefghijklfghijklmghijklmn"
                                  "hijklmnoijklmnopjklmnopqklmnopqrlmnopqrsmnopqrstnopqrstu";
constexpr char kDigits[] = "1234567890123456789012345678901234567890"
                           "1234567890123456789012345678901234567890";

constexpr std::array<char, 201> kA3 = [] {
    std::array<char, 201> text{};
    std::fill_n(text.begin(), 200, '\xA3');
    return text;
}();

constexpr char kLonger2202[] = "Test Using Larger Than Block-Size Key and Larger Than One Block-Size Data";
constexpr char kLonger4231[] =
    "This is a test using a larger than block-size key and a larger than block-size data. "
    "The key needs to be hashed before being used by the HMAC algorithm.";

struct DigestAnswer {
    int algorithm;
    const char *message, *digest;
};

// The examples that NIST publishes for FIPS 180 and FIPS 202; RFC 1321, A.5; RFC 1319, A.5.
constexpr DigestAnswer kDigestAnswers[] = {
    {kDigestSha1, kTwoBlocks, "84983e441c3bd26ebaae4aa1f95129e5e54670f1"},
    {kDigestSha256, kTwoBlocks, "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1"},
    {kDigestSha384, kTwoLongBlocks,
     "09330c33f71147e83d192fc782cd1b4753111b173b3b05d22fa08086e3b0f712fcc7c71a557e2db966c3e9fa91746039"},
    {kDigestSha512, kTwoLongBlocks,
     "8e959b75dae313da8cf4f72814fc143f8f7779c6eb9f7fa17299aeadb6889018501d289e4900f7e4331b99dec4b5433a"
     "c7d329eeb6dd26545e96e55b874be909"},
    {kDigestSha224, kTwoBlocks, "75388b16512776cc5dba5da1fd890150b0c6455cb4f58b1952522525"},
    {kDigestMd5, kDigits, "57edf4a22be3c955ac49da2e2107b67a"},
    {kDigestMd2, kDigits, "d5976f79d83d3a0dc9806c3c66f3efd8"},
    {kDigestSha512_256, kTwoLongBlocks, "3928e184fb8690f840da3988121d31be65cb9d3ef83ee6146feac861e19b563a"},
    {kDigestSha3_256, kA3.data(), "79f38adec5c20307a98ef76e8324afbfd46cfd81b22e3973c65fa1bd9de31787"},
    {kDigestShake256, kA3.data(),
     "cd8a920ed141aa0407a22d59288652e9d9f1a7ee0c1e7c1ca699424da84a904d2d700caae7396ece96604440577da4f3"
     "aa22aeb8857f961c4cd8e06f0ae6610b"},
};

// Two MACs: with the key "Jefe" of "what do ya want for nothing?", and with a key of longKeyBytes times 0xAA,
// longer than a block, of a message longer than a block.
struct HmacAnswer {
    int algorithm;
    const char* shortMac;
    size_t longKeyBytes;
    const char *longMessage, *longMac;
};

// RFC 2202, test cases 2 and 7; RFC 4231, test cases 2 and 7.
constexpr HmacAnswer kHmacAnswers[] = {
    {kDigestSha1, "effcdf6ae5eb2fa2d27416d5f184df9c259a7c79", 80, kLonger2202,
     "e8e99d0f45237d786d6bbaa7965c7808bbff1a91"},
    {kDigestSha256, "5bdcc146bf60754e6a042426089575c75a003f089d2739839dec58b964ec3843", 131, kLonger4231,
     "9b09ffa71b942fcb27635fbcd5b0e944bfdc63644f0713938a7f51535c3a35e2"},
    {kDigestSha384,
     "af45d2e376484031617f78d2b58a6b1b9c7ef464f5a01b47e42ec3736322445e8e2240ca5e69e2c78b3239ecfab21649", 131,
     kLonger4231,
     "6617178e941f020d351e2f254e8fd32c602420feb0b8fb9adccebb82461e99c5a678cc31e799176d3860e6110c46523e"},
    {kDigestSha512,
     "164b7a7bfcf819e2e395fbe73b56e0a387bd64222e831fd610270cd7ea2505549758bf75c05a994a6d034f65f8f0e6fd"
     "caeab1a34d4a6b4b636e070a38bce737",
     131, kLonger4231,
     "e37b6a775dc87dbaa4dfa9f96e5e3ffddebd71f8867289865df5a32d20cdc944b6022cac3c4982b10d5eeb55c3e4de15"
     "134676fb6de0446065c97440fa8c6a58"},
    {kDigestSha224, "a30e01098bc6dbbf45690f3a7e9e6d0f8bbea2a39e6148008fd05e44", 131, kLonger4231,
     "3a854166ac5d9f023f54d517d0b39dbd946770db9c2b95c9f6f565d1"},
    {kDigestMd5, "750c783e6ab0b503eaa86e310a5db738", 80, kLonger2202, "6f630fad67cda0ee1fb1f562db3aa53e"},
};

// bulk_agrees compares the digest of many blocks given at once with that of the same blocks given one by one:
// some kernels work on eight blocks side by side.
bool bulk_agrees(int algorithm, const char* message) {
    const size_t length = strlen(message);
    constexpr size_t kCopies = 11, kLongest = 200;
    uint8_t all[kCopies * kLongest];
    DigestContext parts, whole;
    if (length > kLongest)
        return false;
    digest_init(parts, algorithm);
    digest_init(whole, algorithm);
    for (size_t i = 0; i < kCopies; i++) {
        // NOLINTNEXTLINE(bugprone-not-null-terminated-result): bytes, not a text
        memcpy(all + i * length, message, length);
        digest_update(parts, message, length);
    }
    digest_update(whole, all, kCopies * length);
    uint8_t ofParts[kMaxDigestSize], ofWhole[kMaxDigestSize];
    const int size = digest_final(parts, ofParts);
    return digest_final(whole, ofWhole) == size && memcmp(ofParts, ofWhole, static_cast<size_t>(size)) == 0;
}

bool mac_is(const char* expected, const char* message, const void* key, size_t keyLen, int algorithm) {
    uint8_t mac[kMaxDigestSize];
    const int size = hmac_bytes(mac, sizeof mac, message, strlen(message), key, keyLen, algorithm);
    return size > 0 && KnownBytes(expected).equals(mac, static_cast<size_t>(size));
}

} // namespace

bool digest_holds(int algorithm) {
    uint8_t digest[kMaxDigestSize];
    for (const DigestAnswer& answer : kDigestAnswers) {
        if (answer.algorithm != algorithm)
            continue;
        const int size = hash_bytes(digest, sizeof digest, answer.message,
                                    static_cast<int64_t>(strlen(answer.message)), algorithm);
        return size > 0 && KnownBytes(answer.digest).equals(digest, static_cast<size_t>(size)) &&
               (algorithm == kDigestMd2 ||
                bulk_agrees(algorithm, answer.message)); // MD2 is slow and has one kernel
    }
    return false;
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

} // namespace zul
