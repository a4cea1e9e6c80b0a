#include <cstring>

#include "frame/call_frame.h"
#include "frame/err.h"
#include "frame/text.h"
#include "key/key_string.h"
#include "key/signature.h"
#include "zulcore.h"

using namespace zul;

namespace {

int check_options(int options) {
    return (options & ~(ZUL_SIG_RAW | ZUL_SIG_DETERMINISTIC)) == 0 ? 0 : err_unknown_option();
}

// sign gives the length of the signature or a negated code.
int sign(unsigned char* out, int room, SignatureInput& input, const char* privateKey, const char* name,
         int options) {
    if (const int error = check_options(options))
        return -error;
    Key key;
    if (const int error = key_string_read_private(privateKey, key))
        return -error;
    SignatureAlgorithm algorithm;
    if (const int error = signature_choose(algorithm, name, key))
        return -error;
    if (algorithm.salt == PssSalt::any)
        return -err_fail(BAD_PARAM_ERROR, "A salt of any length is for verifying alone");
    size_t most = 0;
    if (const int error = signature_most(&most, key, algorithm, options))
        return -error;
    if (out == nullptr || room <= 0)
        return static_cast<int>(most);
    if (static_cast<size_t>(room) < most)
        return -err_short_room(most);
    SecretBuffer signature;
    if (const int error = signature_make(signature, key, algorithm, input, options))
        return -error;
    memcpy(out, signature.data(), signature.size());
    return static_cast<int>(signature.size());
}

bool is_bad(const unsigned char* data, int size) {
    return size < 0 || (data == nullptr && size > 0);
}

int verify(const unsigned char* signature, int size, SignatureInput& input, const char* publicKey,
           const char* name, int options) {
    if (is_bad(signature, size))
        return err_missing_argument();
    if (const int error = check_options(options))
        return error;
    Key key;
    if (const int error = key_string_read(publicKey, key))
        return error;
    SignatureAlgorithm algorithm;
    if (const int error = signature_choose(algorithm, name, key))
        return error;
    return signature_check(signature, static_cast<size_t>(size), key, algorithm, input, options);
}

} // namespace

int SIG_Sign(unsigned char* lpOutput, int nOutBytes, const unsigned char* lpData, int nDataLen,
             const char* szPrivateKey, const char* szAlgorithm, int nOptions) {
    CallFrame frame;
    if (is_bad(lpData, nDataLen))
        return frame.length(-err_missing_argument());
    SignatureBytes input(lpData, static_cast<size_t>(nDataLen));
    return frame.length(sign(lpOutput, nOutBytes, input, szPrivateKey, szAlgorithm, nOptions));
}

int SIG_Verify(const unsigned char* lpSignature, int nSigLen, const unsigned char* lpData, int nDataLen,
               const char* szPublicKey, const char* szAlgorithm, int nOptions) {
    CallFrame frame;
    if (is_bad(lpData, nDataLen))
        return frame.status(err_missing_argument());
    SignatureBytes input(lpData, static_cast<size_t>(nDataLen));
    return frame.status(verify(lpSignature, nSigLen, input, szPublicKey, szAlgorithm, nOptions));
}

int SIG_SignFile(unsigned char* lpOutput, int nOutBytes, const char* szFileIn, const char* szPrivateKey,
                 const char* szAlgorithm, int nOptions) {
    CallFrame frame;
    if (is_missing(szFileIn))
        return frame.length(-err_missing_argument());
    SignatureFile input(szFileIn);
    return frame.length(sign(lpOutput, nOutBytes, input, szPrivateKey, szAlgorithm, nOptions));
}

int SIG_VerifyFile(const unsigned char* lpSignature, int nSigLen, const char* szFileIn,
                   const char* szPublicKey, const char* szAlgorithm, int nOptions) {
    CallFrame frame;
    if (is_missing(szFileIn))
        return frame.status(err_missing_argument());
    SignatureFile input(szFileIn);
    return frame.status(verify(lpSignature, nSigLen, input, szPublicKey, szAlgorithm, nOptions));
}

int SIG_SignDigest(unsigned char* lpOutput, int nOutBytes, const unsigned char* lpDigest, int nDigestLen,
                   const char* szPrivateKey, const char* szAlgorithm, int nOptions) {
    CallFrame frame;
    if (is_bad(lpDigest, nDigestLen))
        return frame.length(-err_missing_argument());
    SignatureDigest input(lpDigest, static_cast<size_t>(nDigestLen));
    return frame.length(sign(lpOutput, nOutBytes, input, szPrivateKey, szAlgorithm, nOptions));
}

int SIG_VerifyDigest(const unsigned char* lpSignature, int nSigLen, const unsigned char* lpDigest,
                     int nDigestLen, const char* szPublicKey, const char* szAlgorithm, int nOptions) {
    CallFrame frame;
    if (is_bad(lpDigest, nDigestLen))
        return frame.status(err_missing_argument());
    SignatureDigest input(lpDigest, static_cast<size_t>(nDigestLen));
    return frame.status(verify(lpSignature, nSigLen, input, szPublicKey, szAlgorithm, nOptions));
}
