#include "frame/call_frame.h"
#include "frame/text.h"
#include "frame/wipe.h"
#include "rng/rng.h"
#include "rng/seed_file.h"
#include "ui/entropy_prompt.h"
#include "zulcore.h"

using namespace zul;

int RNG_BytesWithPrompt(unsigned char* lpOutput, int nOutputLen, const char* szPrompt, int nOptions) {
    CallFrame frame(1);
    if (lpOutput == nullptr || nOutputLen < 0)
        return frame.length(-BAD_PARAM_ERROR);
    const auto size = static_cast<size_t>(nOutputLen);
    if (size > kMaxRandomRequest)
        return frame.length(-PRNG_ERR_TOOBIG);
    return frame.length(-rng_bytes_with_prompt(lpOutput, size, szPrompt, nOptions));
}

int RNG_MakeSeedFile(const char* szSeedFile, const char* szPrompt, int nOptions) {
    CallFrame frame(1);
    if (is_missing(szSeedFile))
        return frame.length(-PRNG_ERR_BADPARAM);
    Secret<20> prompted;
    int error = rng_bytes_with_prompt(prompted.data(), prompted.size(), szPrompt, nOptions);
    if (error == 0)
        error = seed_file_make(szSeedFile, prompted.data(), prompted.size());
    return frame.length(-error);
}
