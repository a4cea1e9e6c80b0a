#include <cstring>

#include "frame/call_frame.h"
#include "rng/seed_file.h"
#include "support/calls/calls.h"

namespace calls {

namespace {

using enum Output;
using enum Good;

const unsigned char kKey[] = "0123456789abcdef0123456789abcdef";
const Text kMessage = Text("message"), kHexKey = Text("30313233343536373839616263646566");
constexpr int kRoom = World::kRoom;

int hash_in_pieces(World& w) {
    if (HASH_Begin(w.context, sizeof w.context, "sha3-256", 0) < 0)
        return -1;
    HASH_Add(w.context, kMessage, 7);
    return HASH_End(w.bytes, kRoom, w.context);
}

int hmac_in_pieces(World& w) {
    if (HMAC_Begin(w.context, sizeof w.context, kKey, 32, "sha256", 0) < 0)
        return -1;
    HMAC_Add(w.context, kMessage, 7);
    return HMAC_End(w.bytes, kRoom, w.context);
}

int cipher_begin(World& w) {
    return CIPHER_Begin(w.context, sizeof w.context, 1, kKey, 32, kKey, 16, "aes-256-cbc", 0);
}

// Nobody is asked: there is no terminal. A desktop has somebody always, so there no output is given.
#ifdef _WIN32
char* asked_for(World&) {
    return nullptr;
}
constexpr int kNobody = -BAD_PARAM_ERROR, kNoRandomness = -BAD_PARAM_ERROR, kNoSeedFile = -PRNG_ERR_BADPARAM;
#else
char* asked_for(World& w) {
    return w.text;
}
constexpr int kNobody = -1, kNoRandomness = -PRNG_ERR_NOTAVAIL, kNoSeedFile = -PRNG_ERR_NOTAVAIL;
#endif

// What RNG_MakeSeedFile does once a user has been asked.
int make_seed_file(World& w) {
    zul::CallFrame frame(1);
    return frame.length(-zul::seed_file_make(w.target, kMessage, 7));
}

} // namespace

const std::vector<Call>& data_calls() {
    static const std::vector<Call> all = {
        {"ZUL_ErrorCode", none, length, [](World&) { return ZUL_ErrorCode(); }},
        {"ZUL_LastError", none, length, [](World& w) { return ZUL_LastError(w.text, 511); }},
        {"ZUL_ErrorLookup", none, length, [](World& w) { return ZUL_ErrorLookup(w.text, 511, 1); }},
        {"ZUL_ModuleName", none, length, [](World& w) { return ZUL_ModuleName(w.text, 511, 0); }},
        {"ZUL_Version", none, value, [](World&) { return ZUL_Version(nullptr, nullptr); }, 360},
        {"ZUL_CompileTime", none, value, [](World& w) { return ZUL_CompileTime(w.text, 511); }, 20},
        // A program that links the library is not sealed.
        {"ZUL_PowerUpTests", none, value, [](World&) { return ZUL_PowerUpTests(0); }, -TEST_FAILED_ERROR},
        {"WIPE_Data", none, status, [](World& w) { return WIPE_Data(w.bytes, 100); }},
        {"WIPE_File", inPlace, status, [](World& w) { return WIPE_File(w.target, 0); }},
        {"CNV_HexStrFromBytes", none, length,
         [](World& w) { return CNV_HexStrFromBytes(w.text, kRoom, kMessage, 7); }},
        {"CNV_BytesFromHexStr", none, length,
         [](World& w) { return CNV_BytesFromHexStr(w.bytes, kRoom, kHexKey); }},
        {"CNV_HexFilter", none, length, [](World& w) { return CNV_HexFilter(w.text, "0 1", 3); }},
        {"CNV_B64StrFromBytes", none, length,
         [](World& w) { return CNV_B64StrFromBytes(w.text, kRoom, kMessage, 7); }},
        {"CNV_BytesFromB64Str", none, length,
         [](World& w) { return CNV_BytesFromB64Str(w.bytes, kRoom, "bWVzc2FnZQ=="); }},
        {"CNV_B64Filter", none, length, [](World& w) { return CNV_B64Filter(w.text, "AA ==", 5); }},
        {"CNV_CheckUTF8", none, value, [](World&) { return CNV_CheckUTF8("\xC3\xA9"); }, 2},
        {"CNV_CheckUTF8Bytes", none, value, [](World&) { return CNV_CheckUTF8Bytes(kMessage, 7); }, 1},
        {"CNV_UTF8FromLatin1", none, length,
         [](World& w) { return CNV_UTF8FromLatin1(w.text, kRoom, "\xE9"); }},
        {"CNV_Latin1FromUTF8", none, length,
         [](World& w) { return CNV_Latin1FromUTF8(w.text, kRoom, "\xC3\xA9"); }},
        {"CNV_UTF8BytesFromLatin1", none, length,
         [](World& w) { return CNV_UTF8BytesFromLatin1(w.bytes, kRoom, "\xE9"); }},
        {"CNV_Latin1FromUTF8Bytes", none, length,
         [](World& w) { return CNV_Latin1FromUTF8Bytes(w.text, kRoom, kMessage, 7); }},
        {"CNV_ByteEncoding", none, length,
         [](World& w) { return CNV_ByteEncoding(w.bytes, kRoom, kMessage, 7, ZUL_CNV_UTF8_FROM_LATIN1); }},
        {"PEM_FileFromBinFile", removed, length,
         [](World& w) { return PEM_FileFromBinFile(w.target, w.large, "DATA", 64); }},
        {"PEM_FileToBinFile", removed, length, [](World& w) { return PEM_FileToBinFile(w.target, w.pem); }},
        {"HASH_Bytes", none, length, [](World& w) { return HASH_Bytes(w.bytes, kRoom, kMessage, 7, 0); }},
        {"HASH_File", none, length,
         [](World& w) { return HASH_File(w.bytes, kRoom, w.large, ZUL_HASH_SHA256); }},
        {"HASH_HexFromBytes", none, length,
         [](World& w) { return HASH_HexFromBytes(w.text, kRoom, kMessage, 7, ZUL_HASH_MD5); }},
        {"HASH_HexFromFile", none, length,
         [](World& w) { return HASH_HexFromFile(w.text, kRoom, w.large, ZUL_HASH_MODE_TEXT); }},
        {"HASH_HexFromHex", none, length,
         [](World& w) { return HASH_HexFromHex(w.text, kRoom, kHexKey, 3); }},
        {"HMAC_Bytes", none, length,
         [](World& w) { return HMAC_Bytes(w.bytes, kRoom, kMessage, 7, kKey, 32, ZUL_HASH_SHA256); }},
        {"HMAC_HexFromBytes", none, length,
         [](World& w) { return HMAC_HexFromBytes(w.text, kRoom, kMessage, 7, kKey, 32, ZUL_HASH_SHA512); }},
        {"HMAC_HexFromHex", none, length,
         [](World& w) { return HMAC_HexFromHex(w.text, kRoom, kHexKey, kHexKey, 0); }},
        {"KDF_Pbkdf2", none, value,
         [](World& w) { return KDF_Pbkdf2(w.bytes, 32, kMessage, 7, kKey, 16, 2, "sha256"); }, 32},
        {"KDF_Hkdf", none, value,
         [](World& w) { return KDF_Hkdf(w.bytes, 32, kKey, 32, kKey, 16, kMessage, 7, nullptr); }, 32},
        {"KDF_Scrypt", none, length,
         [](World& w) { return KDF_Scrypt(w.bytes, 32, kMessage, 7, kKey, 16, 16, 1, 1); }},
        {"KDF_Argon2id", none, length,
         [](World& w) { return KDF_Argon2id(w.bytes, 32, kMessage, 7, kKey, 16, 32, 1, 1); }},
        {"CIPHER_Bytes", none, status,
         [](World& w) { return CIPHER_Bytes(1, w.bytes, kKey, 32, kKey, kKey, "aes-128/CBC", 0); }},
        {"CIPHER_Hex", none, status,
         [](World& w) {
             return CIPHER_Hex(1, w.text, kRoom, kHexKey, kHexKey, kHexKey, "",
                               ZUL_CIPHER_AES128 | ZUL_MODE_CBC);
         }},
        {"CIPHER_File", removed, status,
         [](World& w) { return CIPHER_File(1, w.target, w.large, kKey, kKey, "aes-128/CTR", 0); }},
        {"TDEA_BytesMode", none, status,
         [](World& w) { return TDEA_BytesMode(w.bytes, kKey, 32, kKey, 1, "CBC", kKey); }},
        {"TDEA_HexMode", none, status,
         [](World& w) {
             return TDEA_HexMode(w.text, kHexKey, "303132333435363738396162636465663031323334353637", 1,
                                 "ECB", "");
         }},
        {"TDEA_B64Mode", none, status,
         [](World& w) {
             return TDEA_B64Mode(w.text, "MDEyMzQ1Njc=", "MDEyMzQ1Njc4OWFiY2RlZjAxMjM0NTY3", 1, "ECB", "");
         }},
        {"TDEA_File", removed, status,
         [](World& w) { return TDEA_File(w.target, w.large, kKey, 1, "CBC", kKey); }},
        {"CIPHER_KeyWrap", none, length,
         [](World& w) { return CIPHER_KeyWrap(w.bytes, kRoom, kKey, 24, kKey, 24, ZUL_CIPHER_TDEA); }},
        {"CIPHER_KeyUnwrap", none, length,
         [](World& w) {
             return CIPHER_KeyUnwrap(w.bytes, kRoom, w.wrapped, w.wrapped.length(), kKey, 16,
                                     ZUL_CIPHER_AES128);
         }},
        {"PAD_BytesBlock", none, length,
         [](World& w) { return PAD_BytesBlock(w.bytes, kRoom, kMessage, 7, 16, 0); }},
        {"PAD_UnpadBytes", none, length,
         [](World& w) { return PAD_UnpadBytes(w.bytes, kRoom, w.padded, 16, 16, 0); }},
        {"PAD_HexBlock", none, length, [](World& w) { return PAD_HexBlock(w.text, kRoom, "00", 16, 0); }},
        {"PAD_UnpadHex", none, length,
         [](World& w) { return PAD_UnpadHex(w.text, kRoom, "0007070707070707", 8, 0); }},
        {"RNG_Bytes", none, length, [](World& w) { return RNG_Bytes(w.bytes, 100, kMessage, 7); }},
        {"RNG_BytesWithPrompt", none, value,
         [](World& w) {
             return RNG_BytesWithPrompt(reinterpret_cast<unsigned char*>(asked_for(w)), 100, nullptr, 0);
         },
         kNoRandomness},
        {"RNG_Number", none, value, [](World&) { return RNG_Number(-1, 1) / 2; }},
        {"RNG_Test", removed, length, [](World& w) { return RNG_Test(w.target, 0); }},
        {"RNG_Initialize", inPlace, length, [](World& w) { return RNG_Initialize(w.target, 0); }},
        {"RNG_MakeSeedFile", none, value,
         [](World& w) {
             return RNG_MakeSeedFile(asked_for(w) == nullptr ? "" : w.target.c_str(), nullptr, 0);
         },
         kNoSeedFile},
        {"RNG_MakeSeedFile", removed, length, make_seed_file},
        {"RNG_UpdateSeedFile", inPlace, length, [](World& w) { return RNG_UpdateSeedFile(w.target, 0); }},
        {"PWD_Prompt", none, value, [](World& w) { return PWD_Prompt(asked_for(w), 100, nullptr); }, kNobody},
        {"PWD_PromptEx", none, value, [](World& w) { return PWD_PromptEx(asked_for(w), 100, "a", "b"); },
         kNobody},
        {"HASH_Begin", none, length,
         [](World& w) { return HASH_Begin(w.context, sizeof w.context, "sha256", 0); }},
        {"HASH_Add", none, length, hash_in_pieces},
        {"HASH_End", none, length, hash_in_pieces},
        {"HMAC_Begin", none, length,
         [](World& w) { return HMAC_Begin(w.context, sizeof w.context, kKey, 32, "sha512", 0); }},
        {"HMAC_Add", none, length, hmac_in_pieces},
        {"HMAC_End", none, length, hmac_in_pieces},
        {"CIPHER_Begin", none, length, cipher_begin},
        {"CIPHER_Add", none, length,
         [](World& w) {
             return cipher_begin(w) < 0 ? -1 : CIPHER_Add(w.bytes, kRoom, w.context, kMessage, 7);
         }},
        {"CIPHER_End", none, length,
         [](World& w) { return cipher_begin(w) < 0 ? -1 : CIPHER_End(w.bytes, kRoom, w.context); }},
        {"AEAD_Encrypt", none, length,
         [](World& w) {
             return AEAD_Encrypt(w.bytes, kRoom, kMessage, 7, kKey, 32, nullptr, 0, nullptr, 0,
                                 "chacha20-poly1305", ZUL_AEAD_RANDOM_NONCE);
         }},
        {"AEAD_Decrypt", none, length,
         [](World& w) {
             return AEAD_Decrypt(w.bytes, kRoom, w.sealedText, w.sealedText.length(), kKey, 32, nullptr, 0,
                                 nullptr, 0, "aes-256-gcm", ZUL_AEAD_RANDOM_NONCE);
         }},

    };
    return all;
}

} // namespace calls
