// RSA key generation (RFC 8017, 3).
#include "rsa/rsa_generate.h"

#include <cstdio>
#include <cstring>
#include <ctime>

#include "frame/debug_output.h"
#include "frame/err.h"
#include "frame/memory.h"
#include "platform/platform.h"
#include "rsa/rsa_pairwise.h"
#include "rsa/rsa_prime.h"
#include "zulcore.h"

namespace zul {

namespace {

constexpr DIGIT_T kExponents[] = {3, 5, 17, 257, 65537};
constexpr unsigned kLastExponent = 4;
constexpr char kNoInverse[] = "mtModInv failed: problem with multon arithmetic.";

void print_value(const char* label, const MtNumber* value) {
    if (debugOutput.values < 2)
        return;
    printf("%s", label);
    mtPrint(value, kMtPrintLines);
}

bool make_prime(char name, MT prime, size_t bits, DIGIT_T eValue, const RsaGeneration& generation,
                const SecretBuffer& seed) {
    const clock_t start = clock();
    const int examined = rsaGeneratePrime(prime, bits, eValue, generation.tests, seed.data(), seed.size(),
                                          generation.fill, (generation.options & ZUL_KEY_SHOW_PROGRESS) != 0);
    if (debugOutput.values >= 1)
        printf("%c is %d bits\n", name, static_cast<int>(mtBitLength(prime)));
    if (debugOutput.values >= 2)
        printf("%d candidates, %.3f s\n", examined,
               static_cast<double>(clock() - start) / static_cast<double>(CLOCKS_PER_SEC));
    if (examined >= 0)
        return true;
    err_add_text("Too many attempts - we give up this time!");
    return false;
}

bool make_primes(MT p, MT q, DIGIT_T eValue, const RsaGeneration& generation) {
    // One byte more, so that the two searches never draw with the same additional input.
    SecretBuffer seed(generation.seedLen + 1);
    if (generation.seedLen > 0)
        memcpy(seed.data(), generation.seed, generation.seedLen);
    uint8_t& last = seed[generation.seedLen];
    const size_t qBits = generation.bits / 2;
    last = 0x01;
    if (!make_prime('p', p, generation.bits - qBits, eValue, generation, seed))
        return false;
    last = 0xFF;
    if (!make_prime('q', q, qBits, eValue, generation, seed))
        return false;
    if (mtIsEqual(p, q)) {
        err_add_text("Problem with RNG: p and q were equal!");
        return false;
    }
    return true;
}

// print_factors shows p - 1 and q - 1 for debugging. The prime search ensures that neither has a factor in
// common with e.
void print_factors(MT pLess1, MT qLess1, MT e) {
    if (debugOutput.values < 2)
        return;
    print_value("p-1=\n", pLess1);
    print_value("q-1=\n", qLess1);
    BigInt gcd;
    mtGcd(gcd, pLess1, e);
    print_value("gcd(p-1,e)=", gcd);
    mtGcd(gcd, qLess1, e);
    print_value("gcd(q-1,e)=", gcd);
}

[[nodiscard]] int rsaGenerate(RsaKey& key, DIGIT_T eValue, const RsaGeneration& generation) {
    if (!make_primes(key.p, key.q, eValue, generation))
        return KEYGEN_FAILED_ERROR;
    mtSetShort(key.e, eValue);
    if (mtCompare(key.p, key.q) <= 0)
        key.p.swap(key.q);

    BigInt pLess1, qLess1, phi;
    mtShortSub(pLess1, key.p, 1);
    mtShortSub(qLess1, key.q, 1);
    print_factors(pLess1, qLess1, key.e);
    mtMultiply(key.n, key.p, key.q);
    mtMultiply(phi, pLess1, qLess1);
    print_value("n=\n", key.n);
    print_value("phi=\n", phi);
    if (mtModInv(key.d, key.e, phi) != 0)
        return err_fail(KEYGEN_FAILED_ERROR, kNoInverse);
    print_value("d=\n", key.d);
    if (debugOutput.values >= 2) {
        BigInt product;
        mtModMult(product, key.e, key.d, phi);
        print_value("ed mod phi=", product);
    }

    platform::thread_set_priority(platform::ThreadPriority::lowest);
    const bool isWhole = mtModInv(key.dP, key.e, pLess1) == 0 && mtModInv(key.dQ, key.e, qLess1) == 0 &&
                         mtModInv(key.qInv, key.q, key.p) == 0;
    platform::thread_set_priority(platform::ThreadPriority::normal);
    if (!isWhole)
        return err_fail(KEYGEN_FAILED_ERROR, kNoInverse);
    print_value("dP=\n", key.dP);
    print_value("dQ=\n", key.dQ);
    print_value("qInv=", key.qInv);
    return 0;
}

} // namespace

int rsaGenerateKeys(RsaKey* key, const RsaGeneration& generation) {
    if (key == nullptr || generation.fill == nullptr)
        return NULL_ERROR;
    if (generation.bits < 4)
        return OUT_OF_RANGE_ERROR;
    const DIGIT_T eValue =
        kExponents[generation.expIndex < kLastExponent ? generation.expIndex : kLastExponent];
    if (const int code = rsaGenerate(*key, eValue, generation)) {
        key->flags = 0;
        return code;
    }
    key->flags = kRsaPublic | kRsaPrivate | kRsaCrt;
    key->bits = mtBitLength(key->n);
    return rsaPairwiseTest(key);
}

} // namespace zul
