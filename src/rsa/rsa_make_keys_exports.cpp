#include "frame/call_frame.h"
#include "frame/memory.h"
#include "rng/rng.h"
#include "rsa/rsa_der.h"
#include "rsa/rsa_make_keys.h"
#include "zulcore.h"

using namespace zul;

static constexpr int kMinBits = 97;

// No key is made from bytes that are not random.
static int random_fill(uint8_t* out, size_t length, const uint8_t* seed, size_t seedLength) {
    if (rng_bytes(out, length, seed, seedLength) != 0)
        rng_fail();
    return 0;
}

static bool is_empty(const char* text) {
    return text == nullptr || text[0] == '\0';
}

int RSA_MakeKeys(const char* szPubKeyFile, const char* szPriKeyFile, int nBits, int nExpIndex, int nTests,
                 int nCount, const char* szPassword, const void* lpSeed, int nSeedLen, int nOptions) {
    CallFrame frame(1);
    if (is_empty(szPubKeyFile) || is_empty(szPriKeyFile) || is_empty(szPassword) ||
        (lpSeed != nullptr && nSeedLen < 0))
        return frame.status(BAD_PARAM_ERROR);
    if (nBits < kMinBits || nBits > int{kMaxRsaBits}) {
        err_add_text("Invalid size %d", nBits);
        return frame.status(OUT_OF_RANGE_ERROR);
    }
    const size_t seedLen = lpSeed != nullptr ? static_cast<size_t>(nSeedLen) : 0;
    if (seedLen >= kMaxAllocation)
        return frame.status(BAD_LENGTH_ERROR);

    // A negative index becomes a large number and so counts as the last one.
    const RsaGeneration generation{.bits = static_cast<size_t>(nBits),
                                   .expIndex = static_cast<unsigned>(nExpIndex),
                                   .tests = nTests > 0 ? static_cast<size_t>(nTests) : 0,
                                   .seed = static_cast<const uint8_t*>(lpSeed),
                                   .seedLen = seedLen,
                                   .fill = random_fill,
                                   .options = nOptions};
    return frame.status(rsa_make_keys({szPubKeyFile, szPriKeyFile, szPassword, nCount}, generation));
}
