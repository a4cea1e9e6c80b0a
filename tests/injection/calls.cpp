#include "injection/calls.h"

#include <cstring>

#include "frame/call_frame.h"
#include "rng/seed_file.h"

namespace injection {

namespace {

const unsigned char kKey[] = "0123456789abcdef0123456789abcdef";
const Text kMessage = Text("message"), kHexKey = Text("30313233343536373839616263646566"),
           kDigest = Text("0123456789abcdef0123456789abcdef");
constexpr int kRoom = World::kRoom;

int raw(World& w, const Text& block, int (*transform)(unsigned char*, int, const char*, int),
        const Text& key) {
    memcpy(w.bytes, block.data(), block.size());
    return transform(w.bytes, block.length(), key, 0);
}

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

constexpr Output kNone = Output::none, kRemoved = Output::removed, kReplaces = Output::replaces,
                 kPart = Output::part, kInPlace = Output::inPlace;
constexpr Good kStatus = Good::status, kLength = Good::length, kValue = Good::value;

} // namespace

const std::vector<Call>& calls() {
    static const std::vector<Call> all = {
        {"ZUL_ErrorCode", kNone, kLength, [](World&) { return ZUL_ErrorCode(); }},
        {"ZUL_LastError", kNone, kLength, [](World& w) { return ZUL_LastError(w.text, 511); }},
        {"ZUL_ErrorLookup", kNone, kLength, [](World& w) { return ZUL_ErrorLookup(w.text, 511, 1); }},
        {"ZUL_ModuleName", kNone, kLength, [](World& w) { return ZUL_ModuleName(w.text, 511, 0); }},
        {"ZUL_Version", kNone, kValue, [](World&) { return ZUL_Version(nullptr, nullptr); }, 360},
        {"ZUL_CompileTime", kNone, kValue, [](World& w) { return ZUL_CompileTime(w.text, 511); }, 20},
        // A program that links the library is not sealed.
        {"ZUL_PowerUpTests", kNone, kValue, [](World&) { return ZUL_PowerUpTests(0); }, -TEST_FAILED_ERROR},

        {"WIPE_Data", kNone, kStatus, [](World& w) { return WIPE_Data(w.bytes, 100); }},
        {"WIPE_File", kInPlace, kStatus, [](World& w) { return WIPE_File(w.target, 0); }},

        {"CNV_HexStrFromBytes", kNone, kLength,
         [](World& w) { return CNV_HexStrFromBytes(w.text, kRoom, kMessage, 7); }},
        {"CNV_BytesFromHexStr", kNone, kLength,
         [](World& w) { return CNV_BytesFromHexStr(w.bytes, kRoom, kHexKey); }},
        {"CNV_HexFilter", kNone, kLength, [](World& w) { return CNV_HexFilter(w.text, "0 1", 3); }},
        {"CNV_B64StrFromBytes", kNone, kLength,
         [](World& w) { return CNV_B64StrFromBytes(w.text, kRoom, kMessage, 7); }},
        {"CNV_BytesFromB64Str", kNone, kLength,
         [](World& w) { return CNV_BytesFromB64Str(w.bytes, kRoom, "bWVzc2FnZQ=="); }},
        {"CNV_B64Filter", kNone, kLength, [](World& w) { return CNV_B64Filter(w.text, "AA ==", 5); }},
        {"CNV_CheckUTF8", kNone, kValue, [](World&) { return CNV_CheckUTF8("\xC3\xA9"); }, 2},
        {"CNV_CheckUTF8Bytes", kNone, kValue, [](World&) { return CNV_CheckUTF8Bytes(kMessage, 7); }, 1},
        {"CNV_UTF8FromLatin1", kNone, kLength,
         [](World& w) { return CNV_UTF8FromLatin1(w.text, kRoom, "\xE9"); }},
        {"CNV_Latin1FromUTF8", kNone, kLength,
         [](World& w) { return CNV_Latin1FromUTF8(w.text, kRoom, "\xC3\xA9"); }},
        {"CNV_UTF8BytesFromLatin1", kNone, kLength,
         [](World& w) { return CNV_UTF8BytesFromLatin1(w.bytes, kRoom, "\xE9"); }},
        {"CNV_Latin1FromUTF8Bytes", kNone, kLength,
         [](World& w) { return CNV_Latin1FromUTF8Bytes(w.text, kRoom, kMessage, 7); }},
        {"CNV_ByteEncoding", kNone, kLength,
         [](World& w) { return CNV_ByteEncoding(w.bytes, kRoom, kMessage, 7, ZUL_CNV_UTF8_FROM_LATIN1); }},

        {"PEM_FileFromBinFile", kRemoved, kLength,
         [](World& w) { return PEM_FileFromBinFile(w.target, w.large, "DATA", 64); }},
        {"PEM_FileToBinFile", kRemoved, kLength, [](World& w) { return PEM_FileToBinFile(w.target, w.pem); }},

        {"HASH_Bytes", kNone, kLength, [](World& w) { return HASH_Bytes(w.bytes, kRoom, kMessage, 7, 0); }},
        {"HASH_File", kNone, kLength,
         [](World& w) { return HASH_File(w.bytes, kRoom, w.large, ZUL_HASH_SHA256); }},
        {"HASH_HexFromBytes", kNone, kLength,
         [](World& w) { return HASH_HexFromBytes(w.text, kRoom, kMessage, 7, ZUL_HASH_MD5); }},
        {"HASH_HexFromFile", kNone, kLength,
         [](World& w) { return HASH_HexFromFile(w.text, kRoom, w.large, ZUL_HASH_MODE_TEXT); }},
        {"HASH_HexFromHex", kNone, kLength, [](World& w) { return HASH_HexFromHex(w.text, kRoom, kHexKey, 3); }},
        {"HMAC_Bytes", kNone, kLength,
         [](World& w) { return HMAC_Bytes(w.bytes, kRoom, kMessage, 7, kKey, 32, ZUL_HASH_SHA256); }},
        {"HMAC_HexFromBytes", kNone, kLength,
         [](World& w) { return HMAC_HexFromBytes(w.text, kRoom, kMessage, 7, kKey, 32, ZUL_HASH_SHA512); }},
        {"HMAC_HexFromHex", kNone, kLength,
         [](World& w) { return HMAC_HexFromHex(w.text, kRoom, kHexKey, kHexKey, 0); }},
        {"KDF_Pbkdf2", kNone, kValue,
         [](World& w) { return KDF_Pbkdf2(w.bytes, 32, kMessage, 7, kKey, 16, 2, "sha256"); }, 32},
        {"KDF_Hkdf", kNone, kValue,
         [](World& w) { return KDF_Hkdf(w.bytes, 32, kKey, 32, kKey, 16, kMessage, 7, nullptr); }, 32},
        {"KDF_Scrypt", kNone, kLength,
         [](World& w) { return KDF_Scrypt(w.bytes, 32, kMessage, 7, kKey, 16, 16, 1, 1); }},
        {"KDF_Argon2id", kNone, kLength,
         [](World& w) { return KDF_Argon2id(w.bytes, 32, kMessage, 7, kKey, 16, 32, 1, 1); }},

        {"CIPHER_Bytes", kNone, kStatus,
         [](World& w) { return CIPHER_Bytes(1, w.bytes, kKey, 32, kKey, kKey, "aes-128/CBC", 0); }},
        {"CIPHER_Hex", kNone, kStatus,
         [](World& w) {
             return CIPHER_Hex(1, w.text, kRoom, kHexKey, kHexKey, kHexKey, "",
                               ZUL_CIPHER_AES128 | ZUL_MODE_CBC);
         }},
        {"CIPHER_File", kRemoved, kStatus,
         [](World& w) { return CIPHER_File(1, w.target, w.large, kKey, kKey, "aes-128/CTR", 0); }},
        {"TDEA_BytesMode", kNone, kStatus,
         [](World& w) { return TDEA_BytesMode(w.bytes, kKey, 32, kKey, 1, "CBC", kKey); }},
        {"TDEA_HexMode", kNone, kStatus,
         [](World& w) {
             return TDEA_HexMode(w.text, kHexKey, "303132333435363738396162636465663031323334353637", 1, "ECB", "");
         }},
        {"TDEA_B64Mode", kNone, kStatus,
         [](World& w) {
             return TDEA_B64Mode(w.text, "MDEyMzQ1Njc=", "MDEyMzQ1Njc4OWFiY2RlZjAxMjM0NTY3", 1, "ECB", "");
         }},
        {"TDEA_File", kRemoved, kStatus,
         [](World& w) { return TDEA_File(w.target, w.large, kKey, 1, "CBC", kKey); }},
        {"CIPHER_KeyWrap", kNone, kLength,
         [](World& w) { return CIPHER_KeyWrap(w.bytes, kRoom, kKey, 24, kKey, 24, ZUL_CIPHER_TDEA); }},
        {"CIPHER_KeyUnwrap", kNone, kLength,
         [](World& w) {
             return CIPHER_KeyUnwrap(w.bytes, kRoom, w.wrapped, w.wrapped.length(), kKey, 16, ZUL_CIPHER_AES128);
         }},
        {"PAD_BytesBlock", kNone, kLength,
         [](World& w) { return PAD_BytesBlock(w.bytes, kRoom, kMessage, 7, 16, 0); }},
        {"PAD_UnpadBytes", kNone, kLength,
         [](World& w) { return PAD_UnpadBytes(w.bytes, kRoom, w.padded, 16, 16, 0); }},
        {"PAD_HexBlock", kNone, kLength, [](World& w) { return PAD_HexBlock(w.text, kRoom, "00", 16, 0); }},
        {"PAD_UnpadHex", kNone, kLength,
         [](World& w) { return PAD_UnpadHex(w.text, kRoom, "0007070707070707", 8, 0); }},

        {"RNG_Bytes", kNone, kLength, [](World& w) { return RNG_Bytes(w.bytes, 100, kMessage, 7); }},
        {"RNG_BytesWithPrompt", kNone, kValue,
         [](World& w) {
             return RNG_BytesWithPrompt(reinterpret_cast<unsigned char*>(asked_for(w)), 100, nullptr, 0);
         },
         kNoRandomness},
        {"RNG_Number", kNone, kValue, [](World&) { return RNG_Number(-1, 1) / 2; }},
        {"RNG_Test", kRemoved, kLength, [](World& w) { return RNG_Test(w.target, 0); }},
        {"RNG_Initialize", kInPlace, kLength, [](World& w) { return RNG_Initialize(w.target, 0); }},
        {"RNG_MakeSeedFile", kNone, kValue,
         [](World& w) { return RNG_MakeSeedFile(asked_for(w) == nullptr ? "" : w.target.c_str(), nullptr, 0); },
         kNoSeedFile},
        {"RNG_MakeSeedFile", kRemoved, kLength, make_seed_file},
        {"RNG_UpdateSeedFile", kInPlace, kLength, [](World& w) { return RNG_UpdateSeedFile(w.target, 0); }},
        {"PWD_Prompt", kNone, kValue, [](World& w) { return PWD_Prompt(asked_for(w), 100, nullptr); }, kNobody},
        {"PWD_PromptEx", kNone, kValue, [](World& w) { return PWD_PromptEx(asked_for(w), 100, "a", "b"); }, kNobody},

        {"RSA_MakeKeys", Output::pair, kStatus,
         [](World& w) {
             return RSA_MakeKeys(w.second, w.target, 256, 4, 5, 1, "password", nullptr, 0, ZUL_KEY_FORMAT_PEM);
         }},
        {"RSA_ReadPublicKey", kNone, kLength,
         [](World& w) { return RSA_ReadPublicKey(w.text, kRoom, w.publicKey); }},
        {"RSA_ReadPrivateKeyInfo", kNone, kLength,
         [](World& w) { return RSA_ReadPrivateKeyInfo(w.text, kRoom, w.privateKey); }},
        {"RSA_ReadEncPrivateKey", kNone, kLength,
         [](World& w) { return RSA_ReadEncPrivateKey(w.text, kRoom, w.encryptedKey, "password", 0); }},
        {"RSA_GetPublicKeyFromCert", kNone, kLength,
         [](World& w) { return RSA_GetPublicKeyFromCert(w.text, kRoom, w.leaf); }},
        {"RSA_SavePublicKey", kReplaces, kStatus, [](World& w) { return RSA_SavePublicKey(w.target, w.rsa, 0); }},
        {"RSA_SavePrivateKeyInfo", kReplaces, kStatus,
         [](World& w) { return RSA_SavePrivateKeyInfo(w.target, w.rsa, ZUL_KEY_FORMAT_PEM_ALT); }},
        {"RSA_SaveEncPrivateKey", kReplaces, kStatus,
         [](World& w) {
             return RSA_SaveEncPrivateKey(w.target, w.rsa, 1, "password", ZUL_PBE_PBES2 | ZUL_PBE_CIPHER_AES128);
         }},
        {"RSA_ToXMLString", kNone, kLength, [](World& w) { return RSA_ToXMLString(w.text, kRoom, w.rsa, 0); }},
        {"RSA_FromXMLString", kNone, kLength,
         [](World& w) { return RSA_FromXMLString(w.text, kRoom, w.xml, 0); }},
        {"RSA_KeyBits", kNone, kLength, [](World& w) { return RSA_KeyBits(w.rsa); }},
        {"RSA_KeyBytes", kNone, kLength, [](World& w) { return RSA_KeyBytes(w.rsaPublic); }},
        {"RSA_KeyMatch", kNone, kStatus, [](World& w) { return RSA_KeyMatch(w.rsa, w.rsaPublic); }},
        {"RSA_KeyHashCode", kNone, kValue, [](World& w) { return RSA_KeyHashCode(w.rsa) != 0 ? 1 : 0; }, 1},
        {"RSA_CheckKey", kNone, kLength, [](World& w) { return RSA_CheckKey(w.rsa, 0); }},
        {"RSA_RawPublic", kNone, kStatus, [](World& w) { return raw(w, w.block, RSA_RawPublic, w.rsaPublic); }},
        {"RSA_RawPrivate", kNone, kStatus, [](World& w) { return raw(w, w.block, RSA_RawPrivate, w.rsa); }},
        {"RSA_EncodeMsg", kNone, kLength,
         [](World& w) { return RSA_EncodeMsg(w.bytes, 128, kMessage, 7, ZUL_EME_PKCSV1_5); }},
        {"RSA_EncodeMsg", kNone, kLength,
         [](World& w) { return RSA_EncodeMsg(w.bytes, 128, kMessage, 7, ZUL_EMSIG_PKCSV1_5); }},
        {"RSA_DecodeMsg", kNone, kLength,
         [](World& w) { return RSA_DecodeMsg(w.bytes, kRoom, w.block, 128, ZUL_EME_OAEP); }},

        {"X509_QueryCert", kNone, kLength,
         [](World& w) { return X509_QueryCert(w.text, kRoom, w.leaf, "subjectName", 0); }},
        {"X509_KeyUsageFlags", kNone, kLength, [](World& w) { return X509_KeyUsageFlags(w.root); }},
        {"X509_CertThumb", kNone, kLength, [](World& w) { return X509_CertThumb(w.root, w.text, kRoom, 0); }},
        {"X509_CertThumb", kNone, kLength, [](World& w) { return X509_CertThumb(w.leafText, w.text, kRoom, 0); }},
        {"X509_CertIsValidNow", kNone, kStatus, [](World& w) { return X509_CertIsValidNow(w.root, 0); }},
        {"X509_CertIssuedOn", kNone, kLength,
         [](World& w) { return X509_CertIssuedOn(w.leaf, w.text, kRoom, 0); }},
        {"X509_CertExpiresOn", kNone, kLength,
         [](World& w) { return X509_CertExpiresOn(w.root, w.text, kRoom, 0); }},
        {"X509_CertSerialNumber", kNone, kLength,
         [](World& w) { return X509_CertSerialNumber(w.leaf, w.text, kRoom, 0); }},
        {"X509_CertSubjectName", kNone, kLength,
         [](World& w) { return X509_CertSubjectName(w.leaf, w.text, kRoom, "", 0); }},
        {"X509_CertIssuerName", kNone, kLength,
         [](World& w) { return X509_CertIssuerName(w.leaf, w.text, kRoom, ",", ZUL_X509_LATIN1); }},
        {"X509_HashIssuerAndSN", kNone, kLength,
         [](World& w) { return X509_HashIssuerAndSN(w.leaf, w.text, kRoom, 0); }},
        {"X509_ReadStringFromFile", kNone, kLength,
         [](World& w) { return X509_ReadStringFromFile(w.text, kRoom, w.root, 0); }},
        {"X509_SaveFileFromString", kRemoved, kLength,
         [](World& w) { return X509_SaveFileFromString(w.target, w.leafText, ZUL_X509_FORMAT_PEM); }},
        {"X509_MakeCert", kRemoved, kStatus,
         [](World& w) {
             return X509_MakeCert(w.target, w.root, w.publicKey, w.encryptedKey, 3, 1, "CN=A", "rfc822Name=a@b",
                                  1, "password", ZUL_X509_AUTHKEYID);
         }},
        {"X509_MakeCert", kRemoved, kStatus,
         [](World& w) {
             return X509_MakeCert(w.target, w.root, w.request, w.rsa, 3, 1, "", "", 0, "-", ZUL_X509_FORMAT_PEM);
         }},
        {"X509_MakeCertSelf", kRemoved, kStatus,
         [](World& w) {
             return X509_MakeCertSelf(w.target, w.encryptedKey, 1, 1, "CN=A", "", 0, "password",
                                      ZUL_X509_UTF8 | ZUL_HASH_SHA256);
         }},
        {"X509_CertRequest", kReplaces, kStatus,
         [](World& w) { return X509_CertRequest(w.target, w.encryptedKey, "CN=A", "", "password", 0); }},
        {"X509_MakeCRL", kRemoved, kStatus,
         [](World& w) {
             return X509_MakeCRL(w.target, w.root, w.encryptedKey, "password", "1,2020-01-01", "", 0);
         }},
        {"X509_VerifyCert", kNone, kStatus, [](World& w) { return X509_VerifyCert(w.leaf, w.root); }},
        {"X509_VerifyCert", kNone, kStatus, [](World& w) { return X509_VerifyCert(w.crl, w.root); }},
        {"X509_CheckCertInCRL", kNone, kLength,
         [](World& w) { return X509_CheckCertInCRL(w.leaf, w.crl, nullptr, nullptr, 0); }},
        {"X509_CheckCertInCRL", kNone, kLength,
         [](World& w) { return X509_CheckCertInCRL(w.leaf, w.crl, w.root, "2026-01-01", 0); }},
        {"X509_ValidatePath", kNone, kLength,
         [](World& w) { return X509_ValidatePath(Text(w.leaf + ";" + w.root), w.root, 0); }},
        {"X509_ValidatePath", kNone, kLength, [](World& w) { return X509_ValidatePath(w.bundle, nullptr, 0); }},
        {"X509_TextDump", kPart, kLength, [](World& w) { return X509_TextDump(w.target, w.leaf, 0); }},
        {"X509_TextDump", kPart, kLength, [](World& w) { return X509_TextDump(w.target, w.crl, 0); }},
        {"X509_GetCertFromP7Chain", kPart, kLength,
         [](World& w) { return X509_GetCertFromP7Chain(w.target, w.bundle, 2, 0); }},
        {"X509_GetCertFromPFX", kRemoved, kStatus, [](World& w) { return X509_GetCertFromPFX(w.target, w.pfx, 0); }},
        {"RSA_GetPrivateKeyFromPFX", kReplaces, kStatus,
         [](World& w) { return RSA_GetPrivateKeyFromPFX(w.target, w.pfx, 0); }},

        {"CMS_MakeSigData", kPart, kStatus,
         [](World& w) {
             return CMS_MakeSigData(w.target, w.plain, w.leaf, w.rsa, ZUL_CMS_INCLUDE_ATTRS | ZUL_CMS_ADD_SIGNTIME);
         }},
        {"CMS_MakeSigData", kPart, kStatus,
         [](World& w) {
             return CMS_MakeSigData(w.target, w.large, w.leaf, w.rsa, ZUL_CMS_EXCLUDE_DATA | ZUL_CMS_FORMAT_BASE64);
         }},
        {"CMS_MakeSigData", kPart, kStatus,
         [](World& w) {
             return CMS_MakeSigData(w.target, "", Text(w.leaf + ";" + w.root), "", ZUL_CMS_CERTS_ONLY);
         }},
        {"CMS_MakeSigDataFromString", kPart, kStatus,
         [](World& w) { return CMS_MakeSigDataFromString(w.target, kMessage, w.leaf, w.rsa, ZUL_HASH_SHA256); }},
        {"CMS_MakeDetachedSig", kPart, kStatus,
         [](World& w) { return CMS_MakeDetachedSig(w.target, w.hashed, w.leaf, w.rsa, ZUL_HASH_SHA256); }},
        {"CMS_MakeSigDataFromSigValue", kPart, kStatus,
         [](World& w) {
             return CMS_MakeSigDataFromSigValue(w.target, w.signature, w.signature.length(), kMessage, 7, w.leaf,
                                                ZUL_HASH_SHA256);
         }},
        {"CMS_ReadSigData", kPart, kLength, [](World& w) { return CMS_ReadSigData(w.target, w.signedData, 0); }},
        {"CMS_ReadSigDataToString", kNone, kLength,
         [](World& w) { return CMS_ReadSigDataToString(w.text, kRoom, w.signedData, 0); }},
        {"CMS_VerifySigData", kNone, kStatus,
         [](World& w) { return CMS_VerifySigData(w.signedData, w.leaf, nullptr, 0); }},
        {"CMS_GetSigDataDigest", kNone, kLength,
         [](World& w) { return CMS_GetSigDataDigest(w.text, kRoom, w.signedData, nullptr, 0); }},
        {"CMS_QuerySigData", kNone, kLength,
         [](World& w) { return CMS_QuerySigData(w.text, kRoom, w.signedData, "messageDigest", 0); }},
        {"CMS_MakeEnvData", kRemoved, kLength,
         [](World& w) {
             return CMS_MakeEnvData(w.target, w.plain, Text(w.leaf + ";" + w.root), nullptr, 0,
                                    ZUL_CMS_CIPHER_AES256);
         }},
        {"CMS_MakeEnvDataFromString", kRemoved, kLength,
         [](World& w) {
             return CMS_MakeEnvDataFromString(w.target, kMessage, w.leaf, nullptr, 0, ZUL_CMS_FORMAT_BASE64);
         }},
        {"CMS_ReadEnvData", kRemoved, kLength,
         [](World& w) { return CMS_ReadEnvData(w.target, w.enveloped, w.leaf, w.rsa, 0); }},
        {"CMS_ReadEnvDataToString", kNone, kLength,
         [](World& w) { return CMS_ReadEnvDataToString(w.text, kRoom, w.enveloped, "", w.rsa, 0); }},
        {"CMS_QueryEnvData", kNone, kLength,
         [](World& w) { return CMS_QueryEnvData(w.text, kRoom, w.enveloped, "recipientIssuerName", 0); }},

        {"PFX_MakeFile", kReplaces, kStatus,
         [](World& w) { return PFX_MakeFile(w.target, w.root, w.encryptedKey, "password", "name", 0); }},
        {"PFX_VerifySig", kNone, kStatus, [](World& w) { return PFX_VerifySig(w.pfx, "password", 0); }},
        {"OCSP_MakeRequest", kNone, kLength,
         [](World& w) { return OCSP_MakeRequest(w.text, kRoom, w.root, w.leaf, "", 0); }},
        {"OCSP_ReadResponse", kNone, kLength,
         [](World& w) { return OCSP_ReadResponse(w.text, 1023, w.response, w.responder, "", 0); }},

        {"HASH_Begin", kNone, kLength,
         [](World& w) { return HASH_Begin(w.context, sizeof w.context, "sha256", 0); }},
        {"HASH_Add", kNone, kLength, hash_in_pieces},
        {"HASH_End", kNone, kLength, hash_in_pieces},
        {"HMAC_Begin", kNone, kLength,
         [](World& w) { return HMAC_Begin(w.context, sizeof w.context, kKey, 32, "sha512", 0); }},
        {"HMAC_Add", kNone, kLength, hmac_in_pieces},
        {"HMAC_End", kNone, kLength, hmac_in_pieces},
        {"CIPHER_Begin", kNone, kLength, cipher_begin},
        {"CIPHER_Add", kNone, kLength,
         [](World& w) {
             return cipher_begin(w) < 0 ? -1 : CIPHER_Add(w.bytes, kRoom, w.context, kMessage, 7);
         }},
        {"CIPHER_End", kNone, kLength,
         [](World& w) { return cipher_begin(w) < 0 ? -1 : CIPHER_End(w.bytes, kRoom, w.context); }},
        {"AEAD_Encrypt", kNone, kLength,
         [](World& w) {
             return AEAD_Encrypt(w.bytes, kRoom, kMessage, 7, kKey, 32, nullptr, 0, nullptr, 0,
                                 "chacha20-poly1305", ZUL_AEAD_RANDOM_NONCE);
         }},
        {"AEAD_Decrypt", kNone, kLength,
         [](World& w) {
             return AEAD_Decrypt(w.bytes, kRoom, w.sealedText, w.sealedText.length(), kKey, 32, nullptr, 0,
                                 nullptr, 0, "aes-256-gcm", ZUL_AEAD_RANDOM_NONCE);
         }},

        {"KEY_Make", kNone, kLength, [](World& w) { return KEY_Make(w.text, kRoom, "p-384", 0); }},
        {"KEY_Make", kNone, kLength, [](World& w) { return KEY_Make(w.text, kRoom, "rsa-1024", 0); }},
        {"KEY_Read", kNone, kLength, [](World& w) { return KEY_Read(w.text, kRoom, w.scryptKey, "password", 0); }},
        {"KEY_Read", kNone, kLength, [](World& w) { return KEY_Read(w.text, kRoom, w.subject, nullptr, 0); }},
        {"KEY_Read", kNone, kLength, [](World& w) { return KEY_Read(w.text, kRoom, w.ownKey, nullptr, 0); }},
        {"KEY_Save", kReplaces, kStatus,
         [](World& w) { return KEY_Save(w.target, w.x, nullptr, nullptr, ZUL_KEY_FORMAT_PEM); }},
        {"KEY_Save", kReplaces, kStatus,
         [](World& w) { return KEY_Save(w.target, w.ec, "password", "kdf=scrypt;n=16;r=1;p=1", 0); }},
        {"KEY_Public", kNone, kLength, [](World& w) { return KEY_Public(w.text, kRoom, w.ed); }},
        {"KEY_Query", kNone, kLength,
         [](World& w) { return KEY_Query(w.text, kRoom, w.rsa, "fingerprint", 0); }},
        {"KEY_Match", kNone, kStatus, [](World& w) { return KEY_Match(w.ec, w.ecPublic); }},
        {"KEY_Check", kNone, kStatus, [](World& w) { return KEY_Check(w.rsa, 0); }},
        {"KEY_Agree", kNone, kLength, [](World& w) { return KEY_Agree(w.bytes, kRoom, w.x, w.xPublic, 0); }},

        {"SIG_Sign", kNone, kLength,
         [](World& w) { return SIG_Sign(w.bytes, kRoom, kMessage, 7, w.rsa, nullptr, 0); }},
        {"SIG_Sign", kNone, kLength,
         [](World& w) { return SIG_Sign(w.bytes, kRoom, kMessage, 7, w.ec, nullptr, 0); }},
        {"SIG_Verify", kNone, kStatus,
         [](World& w) {
             return SIG_Verify(w.signature, w.signature.length(), kMessage, 7, w.rsaPublic, "rsa-sha256", 0);
         }},
        {"SIG_Verify", kNone, kStatus,
         [](World& w) {
             return SIG_Verify(w.ecSignature, w.ecSignature.length(), kMessage, 7, w.ecPublic, nullptr, 0);
         }},
        {"SIG_SignFile", kNone, kLength,
         [](World& w) { return SIG_SignFile(w.bytes, kRoom, w.large, w.ed, nullptr, 0); }},
        {"SIG_SignFile", kNone, kLength,
         [](World& w) { return SIG_SignFile(w.bytes, kRoom, w.large, w.rsa, "rsa-sha256", 0); }},
        {"SIG_VerifyFile", kNone, kStatus,
         [](World& w) {
             return SIG_VerifyFile(w.fileSignature, w.fileSignature.length(), w.large, w.edPublic, nullptr, 0);
         }},
        {"SIG_SignDigest", kNone, kLength,
         [](World& w) { return SIG_SignDigest(w.bytes, kRoom, kDigest, 32, w.ec, nullptr, ZUL_SIG_RAW); }},
        {"SIG_VerifyDigest", kNone, kStatus,
         [](World& w) {
             return SIG_VerifyDigest(w.digestSignature, w.digestSignature.length(), kDigest, 32, w.ecPublic,
                                     nullptr, 0);
         }},

        {"SEAL_MakeIdentity", kNone, kLength, [](World& w) { return SEAL_MakeIdentity(w.text, 74, 0); }},
        {"SEAL_Recipient", kNone, kLength, [](World& w) { return SEAL_Recipient(w.text, 62, w.identities); }},
        {"SEAL_File", kReplaces, kStatus,
         [](World& w) { return SEAL_File(w.target, w.large, w.recipients, nullptr, 0); }},
        {"SEAL_File", kReplaces, kStatus,
         [](World& w) { return SEAL_File(w.target, w.plain, w.recipient, nullptr, ZUL_SEAL_ARMOUR); }},
        {"SEAL_OpenFile", kReplaces, kStatus,
         [](World& w) { return SEAL_OpenFile(w.target, w.sealed, w.identities, nullptr, 0); }},

        {"P12_Pack", kReplaces, kStatus,
         [](World& w) {
             return P12_Pack(w.target, Text(w.leaf + ";" + w.root), w.privateKey, "password", "name",
                             ZUL_P12_LEGACY | ZUL_KEY_FORMAT_PEM);
         }},
        {"P12_Unpack", kReplaces, kStatus,
         [](World& w) { return P12_Unpack(w.target, w.text, kRoom, w.p12, "password", 0); }},
        {"P12_List", kNone, kLength, [](World& w) { return P12_List(w.text, kRoom, w.p12, "password", 0); }},
        {"P12_List", kNone, kLength,
         [](World& w) { return P12_List(w.text, kRoom, w.p12, nullptr, ZUL_P12_JSON); }},

        {"CERT_SelfSign", kReplaces, kStatus,
         [](World& w) { return CERT_SelfSign(w.target, w.ec, "CN=A;profile=ca;permit=dns:a.example", 0); }},
        {"CERT_Issue", kReplaces, kStatus,
         [](World& w) { return CERT_Issue(w.target, w.authority, w.ed, w.ecKey, "CN=A;email=a@b.example", 0); }},
        {"CERT_Issue", kReplaces, kStatus,
         [](World& w) {
             return CERT_Issue(w.target, w.authority, w.ed, w.pkcs10, "copy=subjectAltName", ZUL_CERT_DER);
         }},
        {"CERT_Request", kReplaces, kStatus,
         [](World& w) { return CERT_Request(w.target, w.privateKey, "CN=A;dns=a.example", 0); }},
        {"CERT_IssueCRL", kReplaces, kStatus,
         [](World& w) {
             return CERT_IssueCRL(w.target, w.authority, w.ed, w.list, Text("cert=" + w.subject), nullptr,
                                  0);
         }},
        {"CERT_Query", kNone, kLength,
         [](World& w) { return CERT_Query(w.text, kRoom, w.subject, "subjectAltName", 0); }},
        {"CERT_Report", kNone, kLength,
         [](World& w) { return CERT_Report(w.text, kRoom, w.bundle, ZUL_CERT_JSON); }},
        {"CERT_Report", kNone, kLength, [](World& w) { return CERT_Report(w.text, kRoom, w.list, 0); }},
        {"CERT_CheckName", kNone, kStatus,
         [](World& w) { return CERT_CheckName(w.subject, "a.example", 0); }},
        {"CERT_CheckPath", kNone, kStatus,
         [](World& w) {
             return CERT_CheckPath(w.text, kRoom, w.subject, nullptr, w.authority, w.list,
                                   "host=a.example;revocation=leaf", 0);
         }},
        {"CERT_CheckPath", kNone, kStatus,
         [](World& w) {
             return CERT_CheckPath(w.text, kRoom, w.leaf, w.bundle, w.root, nullptr, nullptr, ZUL_CERT_JSON);
         }},
    };
    return all;
}

bool is_good(const Call& call, int result) {
    switch (call.good) {
    case Good::status:
        return result == 0;
    case Good::length:
        return result >= 0;
    default:
        return result == call.value;
    }
}

} // namespace injection
