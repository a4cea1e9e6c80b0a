#include <cstring>

#include "frame/call_frame.h"
#include "frame/memory.h"
#include "frame/text.h"
#include "rng/rng.h"
#include "rsa/rsa_der.h"
#include "rsa/rsa_encrypted_key.h"
#include "rsa/rsa_files.h"
#include "rsa/rsa_key_check.h"
#include "rsa/rsa_key_input.h"
#include "rsa/rsa_key_string.h"
#include "rsa/rsa_make_keys.h"
#include "rsa/rsa_message.h"
#include "rsa/rsa_raw.h"
#include "rsa/rsa_xml.h"
#include "zulcore.h"

using namespace zul;

namespace {

constexpr int kMinBits = 97;

// give_public and give_private leave an export with a key string, or with the code of an error before.
int give_public(CallFrame& frame, int code, char* out, int outChars, const RsaKey& key) {
    int length = 0;
    if (code == 0)
        code = rsa_public_key_string(out, outChars, key, &length);
    return frame.length(code, length);
}

int give_private(CallFrame& frame, int code, char* out, int outChars, const RsaKey& key) {
    int length = 0;
    if (code == 0)
        code = rsa_private_key_string(out, outChars, key, &length);
    return frame.length(code, length);
}

// open_any opens a key string of either kind: 0 or a positive code with a text.
int open_any(const char* keyString, RsaKey& key, bool* isPrivate = nullptr) {
    const int code = rsa_open_any(keyString, key, isPrivate);
    return code == 0 ? 0 : err_fail(code, "Could not extract key from string");
}

int open_given(const char* keyString, RsaKey& key, bool* isPrivate = nullptr) {
    return is_missing(keyString) ? BAD_PARAM_ERROR : open_any(keyString, key, isPrivate);
}

// open_to_save opens a key string for a function that writes a file.
int open_to_save(int (*open)(const char*, RsaKey&), const char* file, const char* keyString, RsaKey& key) {
    if (is_missing(file) || is_missing(keyString))
        return BAD_PARAM_ERROR;
    return open(keyString, key) == 0 ? 0 : err_fail(INVALID_DATA_ERROR, "Internal key data is faulty");
}

bool is_raw_call(const unsigned char* data, int length, const char* keyString) {
    return data != nullptr && length >= 1 && !is_missing(keyString);
}

} // namespace

int RSA_MakeKeys(const char* szPubKeyFile, const char* szPriKeyFile, int nBits, int nExpIndex, int nTests,
                 int nCount, const char* szPassword, const void* lpSeed, int nSeedLen, int nOptions) {
    CallFrame frame(1);
    if (is_missing(szPubKeyFile) || is_missing(szPriKeyFile) || is_missing(szPassword) || nTests < 0 ||
        (lpSeed != nullptr && nSeedLen < 0))
        return frame.status(BAD_PARAM_ERROR);
    if (nBits < kMinBits || nBits > int{kMaxRsaBits})
        return frame.status(err_fail(OUT_OF_RANGE_ERROR, "Invalid size %d", nBits));
    const size_t seedLen = lpSeed != nullptr ? static_cast<size_t>(nSeedLen) : 0;
    if (seedLen >= kMaxAllocation)
        return frame.status(BAD_LENGTH_ERROR);

    // A negative index becomes a large number and so counts as the last one.
    const RsaGeneration generation{.bits = static_cast<size_t>(nBits),
                                   .expIndex = static_cast<unsigned>(nExpIndex),
                                   .tests = static_cast<size_t>(nTests),
                                   .seed = static_cast<const uint8_t*>(lpSeed),
                                   .seedLen = seedLen,
                                   .fill = rng_fill,
                                   .options = nOptions};
    return frame.status(rsa_make_keys({szPubKeyFile, szPriKeyFile, szPassword, nCount}, generation));
}

int RSA_ReadPublicKey(char* szOutput, int nOutChars, const char* szFileOrText) {
    CallFrame frame;
    if (is_missing(szFileOrText))
        return frame.length(-BAD_PARAM_ERROR);
    RsaKey key;
    const int code = rsa_input_public_key(szFileOrText, key);
    return give_public(frame, code, szOutput, nOutChars, key);
}

int RSA_ReadPrivateKeyInfo(char* szOutput, int nOutChars, const char* szFileOrText) {
    CallFrame frame;
    if (is_missing(szFileOrText))
        return frame.length(-BAD_PARAM_ERROR);
    RsaKey key;
    const int code = rsa_input_private_key(szFileOrText, key);
    return give_private(frame, code, szOutput, nOutChars, key);
}

int RSA_ReadEncPrivateKey(char* szOutput, int nOutChars, const char* szFileOrText, const char* szPassword,
                          int nOptions) {
    CallFrame frame(1);
    static_cast<void>(nOptions); // the file names its scheme
    if (is_missing(szFileOrText) || szPassword == nullptr)
        return frame.length(-BAD_PARAM_ERROR);
    RsaKey key;
    const int code = rsa_input_encrypted_key(szFileOrText, szPassword, key);
    return give_private(frame, code, szOutput, nOutChars, key);
}

int RSA_SavePublicKey(const char* szFileOut, const char* szKeyString, int nOptions) {
    CallFrame frame;
    const auto open = [](const char* text, RsaKey& key) { return rsa_open_any(text, key, nullptr); };
    RsaKey key;
    const int code = open_to_save(open, szFileOut, szKeyString, key);
    return frame.status(code != 0 ? code : rsa_write_public_key(szFileOut, key, nOptions));
}

int RSA_SavePrivateKeyInfo(const char* szFileOut, const char* szKeyString, int nOptions) {
    CallFrame frame;
    RsaKey key;
    const int code = open_to_save(rsa_open_private, szFileOut, szKeyString, key);
    return frame.status(code != 0 ? code : rsa_write_private_key_info(szFileOut, key, nOptions));
}

int RSA_SaveEncPrivateKey(const char* szFileOut, const char* szKeyString, int nCount, const char* szPassword,
                          int nOptions) {
    CallFrame frame;
    if (szPassword == nullptr)
        return frame.status(BAD_PARAM_ERROR);
    RsaKey key;
    const int code = open_to_save(rsa_open_private, szFileOut, szKeyString, key);
    return frame.status(code != 0 ? code
                                  : rsa_save_encrypted_key(szFileOut, key, nCount, szPassword, nOptions));
}

int RSA_ToXMLString(char* szOutput, int nOutChars, const char* szKeyString, int nOptions) {
    CallFrame frame;
    if (szKeyString == nullptr)
        return frame.length(-BAD_PARAM_ERROR);
    RsaKey key;
    if (const int code = open_any(szKeyString, key))
        return frame.length(-code);
    const SecretBuffer xml = rsa_key_to_xml(key, nOptions);
    const auto length = static_cast<int>(xml.size());
    if (szOutput != nullptr && nOutChars >= length)
        memcpy(szOutput, xml.text(), xml.size() + 1);
    return frame.length(length);
}

int RSA_FromXMLString(char* szOutput, int nOutChars, const char* szXmlString, int) {
    CallFrame frame;
    if (szXmlString == nullptr)
        return frame.length(-BAD_PARAM_ERROR);
    RsaKey key;
    const int code = rsa_key_from_xml(szXmlString, key);
    const bool isPrivate = (key.flags & kRsaPrivate) != 0;
    return isPrivate ? give_private(frame, code, szOutput, nOutChars, key)
                     : give_public(frame, code, szOutput, nOutChars, key);
}

int RSA_KeyBits(const char* szKeyString) {
    CallFrame frame;
    RsaKey key;
    const int code = open_given(szKeyString, key);
    return frame.length(code, static_cast<int>(key.bits));
}

int RSA_KeyBytes(const char* szKeyString) {
    CallFrame frame;
    RsaKey key;
    const int code = open_given(szKeyString, key);
    return frame.length(code, static_cast<int>(key.bytes()));
}

int RSA_KeyMatch(const char* szPrivateKey, const char* szPublicKey) {
    CallFrame frame;
    if (szPrivateKey == nullptr || szPublicKey == nullptr)
        return frame.length(-BAD_PARAM_ERROR);
    return frame.length(-rsa_match_keys(szPrivateKey, szPublicKey));
}

int RSA_KeyHashCode(const char* szKeyString) {
    CallFrame frame;
    RsaKey key;
    // A code may be any number, so 0 is the failure.
    if (const int code = is_missing(szKeyString)
                             ? err_fail(BAD_PARAM_ERROR, "Could not extract key from string")
                             : open_any(szKeyString, key)) {
        frame.length(-code);
        return 0;
    }
    return static_cast<int>(rsa_key_hash_code(key));
}

int RSA_CheckKey(const char* szKeyString, int) {
    CallFrame frame;
    RsaKey key;
    bool isPrivate = false;
    if (const int code = open_given(szKeyString, key, &isPrivate))
        return frame.length(-code);
    return frame.length(isPrivate ? -rsa_check_private_key(key) : 1);
}

int RSA_RawPublic(unsigned char* lpData, int nDataLen, const char* szPublicKey, int nOptions) {
    CallFrame frame;
    if (!is_raw_call(lpData, nDataLen, szPublicKey))
        return frame.status(BAD_PARAM_ERROR);
    return frame.status(rsa_raw_public(lpData, static_cast<size_t>(nDataLen), szPublicKey, nOptions));
}

int RSA_RawPrivate(unsigned char* lpData, int nDataLen, const char* szPrivateKey, int nOptions) {
    CallFrame frame;
    if (!is_raw_call(lpData, nDataLen, szPrivateKey))
        return frame.status(BAD_PARAM_ERROR);
    return frame.status(rsa_raw_private(lpData, static_cast<size_t>(nDataLen), szPrivateKey, nOptions));
}

int RSA_EncodeMsg(unsigned char* lpOutput, int nOutBytes, const unsigned char* lpInput, int nInputLen,
                  int nOptions) {
    CallFrame frame;
    if (lpOutput == nullptr || nOutBytes < 0 || nInputLen < 0 || (lpInput == nullptr && nInputLen > 0))
        return frame.length(-BAD_PARAM_ERROR);
    return frame.length(-rsa_encode_message(lpOutput, static_cast<size_t>(nOutBytes), lpInput,
                                            static_cast<size_t>(nInputLen), nOptions));
}

int RSA_DecodeMsg(unsigned char* lpOutput, int nOutBytes, const unsigned char* lpInput, int nInputLen,
                  int nOptions) {
    CallFrame frame;
    if (lpInput == nullptr || nInputLen < 0)
        return frame.length(-BAD_PARAM_ERROR);
    const size_t room = lpOutput == nullptr || nOutBytes < 1 ? 0 : static_cast<size_t>(nOutBytes);
    int result = 0;
    const int code =
        rsa_decode_message(lpOutput, room, lpInput, static_cast<size_t>(nInputLen), nOptions, &result);
    return frame.length(code, result);
}
