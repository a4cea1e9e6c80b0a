#include "frame/call_frame.h"
#include "frame/text.h"
#include "rng/fips140_report.h"
#include "rng/rng.h"
#include "rng/seed_file.h"
#include "zulcore.h"

using namespace zul;

// A refused request is not recorded: callers that try a size look at the result alone.
int RNG_Bytes(unsigned char* lpOutput, int nBytes, const void* lpSeed, int nSeedLen) {
    const CallFrame frame;
    if (lpOutput == nullptr || nBytes < 0 || nSeedLen < 0)
        return -BAD_PARAM_ERROR;
    if (static_cast<size_t>(nBytes) > kMaxRandomRequest)
        return -PRNG_ERR_TOOBIG;
    rng_draw(lpOutput, static_cast<size_t>(nBytes), static_cast<const uint8_t*>(lpSeed),
             static_cast<size_t>(nSeedLen));
    return 0;
}

int RNG_Number(int nLower, int nUpper) {
    const CallFrame frame;
    return rng_number(nLower, nUpper);
}

int RNG_Test(const char* szFileName, int) {
    CallFrame frame(1);
    return frame.length(-rng_test(szFileName));
}

int RNG_Initialize(const char* szSeedFile, int) {
    CallFrame frame(1);
    return frame.length(szSeedFile == nullptr ? -PRNG_ERR_BADPARAM : -seed_file_update(szSeedFile));
}

// A missing name is not recorded: programs without a seed file call this function too.
int RNG_UpdateSeedFile(const char* szSeedFile, int) {
    CallFrame frame(1);
    if (is_missing(szSeedFile))
        return -BAD_PARAM_ERROR;
    return frame.length(-seed_file_update(szSeedFile));
}
