#include "module/power_up_tests.h"

#include "cipher/aead.h"
#include "ec/curve.h"
#include "frame/fatal_report.h"
#include "hash/digest.h"
#include "module/integrity.h"
#include "module/known_answers.h"
#include "platform/platform.h"
#include "rng/rng.h"

namespace zul {

namespace {

constexpr uint32_t kEventKnownAnswers = 0xC0001F40;
constexpr uint32_t kEventIntegrity = 0xC0001F41;
constexpr uint32_t kEventHealthCheck = 0xC0001F42;
constexpr uint32_t kEventFirstTest = 0xC0001F00; // the tests' own events follow each other

void report(const char* message, uint32_t eventId) {
    fatal_report(static_cast<int>(platform::ReportType::error), message, eventId);
}

struct KnownAnswerTest {
    bool (*holds)(int which);
    int which;
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
    {digest_holds, kDigestSha512_256, "Failed Known Answer Test for SHA-512/256"},
    {digest_holds, kDigestSha3_256, "Failed Known Answer Test for SHA3-256"},
    {digest_holds, kDigestShake256, "Failed Known Answer Test for SHAKE256"},
    {aes_holds, 0, "Failed Known Answer Test for AES"},
    {aead_holds, static_cast<int>(Aead::aes128Gcm), "Failed Known Answer Test for AES-128-GCM"},
    {aead_holds, static_cast<int>(Aead::aes192Gcm), "Failed Known Answer Test for AES-192-GCM"},
    {aead_holds, static_cast<int>(Aead::aes256Gcm), "Failed Known Answer Test for AES-256-GCM"},
    {aead_holds, static_cast<int>(Aead::aes256GcmSiv), "Failed Known Answer Test for AES-256-GCM-SIV"},
    {aead_holds, static_cast<int>(Aead::chacha20Poly1305), "Failed Known Answer Test for ChaCha20-Poly1305"},
    {ecdsa_holds, static_cast<int>(EcCurve::p256), "Failed Known Answer Test for ECDSA with P-256"},
    {ecdsa_holds, static_cast<int>(EcCurve::p384), "Failed Known Answer Test for ECDSA with P-384"},
    {ecdsa_holds, static_cast<int>(EcCurve::p521), "Failed Known Answer Test for ECDSA with P-521"},
    {ecdh_holds, static_cast<int>(EcCurve::p256), "Failed Known Answer Test for ECDH with P-256"},
    {ecdh_holds, static_cast<int>(EcCurve::p384), "Failed Known Answer Test for ECDH with P-384"},
    {ecdh_holds, static_cast<int>(EcCurve::p521), "Failed Known Answer Test for ECDH with P-521"},
    {ed25519_holds, 0, "Failed Known Answer Test for Ed25519"},
    {x25519_holds, 0, "Failed Known Answer Test for X25519"},
    {rsa_pss_holds, 0, "Failed Known Answer Test for RSA-PSS"},
    {hkdf_holds, 0, "Failed Known Answer Test for HKDF"},
    {pbkdf2_holds, 0, "Failed Known Answer Test for PBKDF2"},
    {scrypt_holds, 0, "Failed Known Answer Test for scrypt"},
    {argon2id_holds, 0, "Failed Known Answer Test for Argon2id"},
};

} // namespace

bool known_answers_hold() {
    uint32_t eventId = kEventFirstTest;
    for (const KnownAnswerTest& test : kTests) {
        eventId++;
        if (!test.holds(test.which)) {
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
