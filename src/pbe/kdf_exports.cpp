#include "frame/call_frame.h"
#include "hash/digest_names.h"
#include "hash/hmac.h"
#include "pbe/argon2.h"
#include "pbe/hkdf.h"
#include "pbe/kdf.h"
#include "pbe/scrypt.h"
#include "zulcore.h"

using namespace zul;

// An output has the length that was asked for: there is nothing to query.

namespace {

// Inputs that may be empty may be null then.
struct Bytes {
    Bytes(const void* bytes, int length) : data(static_cast<const uint8_t*>(bytes)), length_(length) {}

    const uint8_t* data;
    bool is_missing() const { return length_ < 0 || (data == nullptr && length_ > 0); }
    size_t size() const { return static_cast<size_t>(length_); }

  private:
    int length_;
};

template<class... Inputs>
int check(const unsigned char* lpOutput, int nOutBytes, const Inputs&... inputs) {
    if (lpOutput == nullptr || nOutBytes < 0 || (inputs.is_missing() || ...))
        return err_missing_argument();
    if (nOutBytes == 0)
        return err_fail(OUT_OF_RANGE_ERROR, "Output must be at least 1 byte");
    return 0;
}

// A number that is no cost at all becomes 0, which every check refuses.
uint64_t cost_of(int number) {
    return number > 0 ? static_cast<uint64_t>(number) : 0;
}

} // namespace

int KDF_Pbkdf2(unsigned char* lpOutput, int nOutBytes, const void* lpPassword, int nPwdLen,
               const void* lpSalt, int nSaltLen, int nIterations, const char* szHash) {
    CallFrame frame;
    const Bytes password(lpPassword, nPwdLen), salt(lpSalt, nSaltLen);
    int algorithm = 0;
    int code = check(lpOutput, nOutBytes, password, salt);
    if (code == 0)
        code = digest_choose_for_hmac(&algorithm, szHash);
    if (code == 0 && nIterations < 1)
        code = err_fail(OUT_OF_RANGE_ERROR, "Iterations must be at least 1");
    if (code != 0)
        return frame.length(-code);
    pbkdf2(lpOutput, static_cast<size_t>(nOutBytes), algorithm, password.data, password.size(), salt.data,
           salt.size(), static_cast<uint32_t>(nIterations));
    return nOutBytes;
}

int KDF_Hkdf(unsigned char* lpOutput, int nOutBytes, const void* lpKey, int nKeyLen, const void* lpSalt,
             int nSaltLen, const void* lpInfo, int nInfoLen, const char* szHash) {
    CallFrame frame;
    const Bytes key(lpKey, nKeyLen), salt(lpSalt, nSaltLen), info(lpInfo, nInfoLen);
    int algorithm = 0;
    int code = check(lpOutput, nOutBytes, key, salt, info);
    if (code == 0)
        code = digest_choose_for_hmac(&algorithm, szHash);
    const int most = 255 * static_cast<int>(hmac_length(algorithm));
    if (code == 0 && nOutBytes > most)
        code = err_fail(OUT_OF_RANGE_ERROR, "Output must be at most %d bytes", most);
    if (code != 0)
        return frame.length(-code);
    hkdf(lpOutput, static_cast<size_t>(nOutBytes), algorithm, key.data, key.size(), salt.data, salt.size(),
         info.data, info.size());
    return nOutBytes;
}

int KDF_Scrypt(unsigned char* lpOutput, int nOutBytes, const void* lpPassword, int nPwdLen,
               const void* lpSalt, int nSaltLen, int nN, int nR, int nP) {
    CallFrame frame;
    const Bytes password(lpPassword, nPwdLen), salt(lpSalt, nSaltLen);
    int code = check(lpOutput, nOutBytes, password, salt);
    if (code == 0)
        code = scrypt(lpOutput, static_cast<size_t>(nOutBytes), password.data, password.size(), salt.data,
                      salt.size(), {cost_of(nN), cost_of(nR), cost_of(nP)});
    return frame.length(code != 0 ? -code : nOutBytes);
}

int KDF_Argon2id(unsigned char* lpOutput, int nOutBytes, const void* lpPassword, int nPwdLen,
                 const void* lpSalt, int nSaltLen, int nMemoryKiB, int nPasses, int nLanes) {
    CallFrame frame;
    const Bytes password(lpPassword, nPwdLen), salt(lpSalt, nSaltLen);
    int code = check(lpOutput, nOutBytes, password, salt);
    if (code == 0)
        code = argon2id(lpOutput, static_cast<size_t>(nOutBytes),
                        {{password.data, password.size()}, {salt.data, salt.size()}, {}, {}},
                        {cost_of(nMemoryKiB), cost_of(nPasses), cost_of(nLanes)});
    return frame.length(code != 0 ? -code : nOutBytes);
}
