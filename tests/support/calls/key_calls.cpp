#include <cstring>

#include "support/calls/calls.h"

namespace calls {

namespace {

using enum Output;
using enum Good;

const Text kMessage = Text("message"), kDigest = Text("0123456789abcdef0123456789abcdef");
constexpr int kRoom = World::kRoom;

int raw(World& w, const Text& block, int (*transform)(unsigned char*, int, const char*, int),
        const Text& key) {
    memcpy(w.bytes, block.data(), block.size());
    return transform(w.bytes, block.length(), key, 0);
}

} // namespace

const std::vector<Call>& key_calls() {
    static const std::vector<Call> all = {
        {"RSA_MakeKeys", pair, status,
         [](World& w) {
             return RSA_MakeKeys(w.second, w.target, 256, 4, 5, 1, "password", nullptr, 0, ZUL_KEY_FORMAT_PEM);
         }},
        {"RSA_ReadPublicKey", none, length,
         [](World& w) { return RSA_ReadPublicKey(w.text, kRoom, w.publicKey); }},
        {"RSA_ReadPrivateKeyInfo", none, length,
         [](World& w) { return RSA_ReadPrivateKeyInfo(w.text, kRoom, w.privateKey); }},
        {"RSA_ReadEncPrivateKey", none, length,
         [](World& w) { return RSA_ReadEncPrivateKey(w.text, kRoom, w.encryptedKey, "password", 0); }},
        {"RSA_GetPublicKeyFromCert", none, length,
         [](World& w) { return RSA_GetPublicKeyFromCert(w.text, kRoom, w.leaf); }},
        {"RSA_SavePublicKey", replaces, status, [](World& w) { return RSA_SavePublicKey(w.target, w.rsa, 0); }},
        {"RSA_SavePrivateKeyInfo", replaces, status,
         [](World& w) { return RSA_SavePrivateKeyInfo(w.target, w.rsa, ZUL_KEY_FORMAT_PEM_ALT); }},
        {"RSA_SaveEncPrivateKey", replaces, status,
         [](World& w) {
             return RSA_SaveEncPrivateKey(w.target, w.rsa, 1, "password", ZUL_PBE_PBES2 | ZUL_PBE_CIPHER_AES128);
         }},
        {"RSA_ToXMLString", none, length, [](World& w) { return RSA_ToXMLString(w.text, kRoom, w.rsa, 0); }},
        {"RSA_FromXMLString", none, length,
         [](World& w) { return RSA_FromXMLString(w.text, kRoom, w.xml, 0); }},
        {"RSA_KeyBits", none, length, [](World& w) { return RSA_KeyBits(w.rsa); }},
        {"RSA_KeyBytes", none, length, [](World& w) { return RSA_KeyBytes(w.rsaPublic); }},
        {"RSA_KeyMatch", none, status, [](World& w) { return RSA_KeyMatch(w.rsa, w.rsaPublic); }},
        {"RSA_KeyHashCode", none, value, [](World& w) { return RSA_KeyHashCode(w.rsa) != 0 ? 1 : 0; }, 1},
        {"RSA_CheckKey", none, length, [](World& w) { return RSA_CheckKey(w.rsa, 0); }},
        {"RSA_RawPublic", none, status, [](World& w) { return raw(w, w.block, RSA_RawPublic, w.rsaPublic); }},
        {"RSA_RawPrivate", none, status, [](World& w) { return raw(w, w.block, RSA_RawPrivate, w.rsa); }},
        {"RSA_EncodeMsg", none, length,
         [](World& w) { return RSA_EncodeMsg(w.bytes, 128, kMessage, 7, ZUL_EME_PKCSV1_5); }},
        {"RSA_EncodeMsg", none, length,
         [](World& w) { return RSA_EncodeMsg(w.bytes, 128, kMessage, 7, ZUL_EMSIG_PKCSV1_5); }},
        {"RSA_DecodeMsg", none, length,
         [](World& w) { return RSA_DecodeMsg(w.bytes, kRoom, w.block, 128, ZUL_EME_OAEP); }},
        {"X509_QueryCert", none, length,
         [](World& w) { return X509_QueryCert(w.text, kRoom, w.leaf, "subjectName", 0); }},
        {"X509_KeyUsageFlags", none, length, [](World& w) { return X509_KeyUsageFlags(w.root); }},
        {"X509_CertThumb", none, length, [](World& w) { return X509_CertThumb(w.root, w.text, kRoom, 0); }},
        {"X509_CertThumb", none, length, [](World& w) { return X509_CertThumb(w.leafText, w.text, kRoom, 0); }},
        {"X509_CertIsValidNow", none, status, [](World& w) { return X509_CertIsValidNow(w.root, 0); }},
        {"X509_CertIssuedOn", none, length,
         [](World& w) { return X509_CertIssuedOn(w.leaf, w.text, kRoom, 0); }},
        {"X509_CertExpiresOn", none, length,
         [](World& w) { return X509_CertExpiresOn(w.root, w.text, kRoom, 0); }},
        {"X509_CertSerialNumber", none, length,
         [](World& w) { return X509_CertSerialNumber(w.leaf, w.text, kRoom, 0); }},
        {"X509_CertSubjectName", none, length,
         [](World& w) { return X509_CertSubjectName(w.leaf, w.text, kRoom, "", 0); }},
        {"X509_CertIssuerName", none, length,
         [](World& w) { return X509_CertIssuerName(w.leaf, w.text, kRoom, ",", ZUL_X509_LATIN1); }},
        {"X509_HashIssuerAndSN", none, length,
         [](World& w) { return X509_HashIssuerAndSN(w.leaf, w.text, kRoom, 0); }},
        {"X509_ReadStringFromFile", none, length,
         [](World& w) { return X509_ReadStringFromFile(w.text, kRoom, w.root, 0); }},
        {"X509_SaveFileFromString", removed, length,
         [](World& w) { return X509_SaveFileFromString(w.target, w.leafText, ZUL_X509_FORMAT_PEM); }},
        {"X509_MakeCert", removed, status,
         [](World& w) {
             return X509_MakeCert(w.target, w.root, w.publicKey, w.encryptedKey, 3, 1, "CN=A", "rfc822Name=a@b",
                                  1, "password", ZUL_X509_AUTHKEYID);
         }},
        {"X509_MakeCert", removed, status,
         [](World& w) {
             return X509_MakeCert(w.target, w.root, w.request, w.rsa, 3, 1, "", "", 0, "-", ZUL_X509_FORMAT_PEM);
         }},
        {"X509_MakeCertSelf", removed, status,
         [](World& w) {
             return X509_MakeCertSelf(w.target, w.encryptedKey, 1, 1, "CN=A", "", 0, "password",
                                      ZUL_X509_UTF8 | ZUL_HASH_SHA256);
         }},
        {"X509_CertRequest", replaces, status,
         [](World& w) { return X509_CertRequest(w.target, w.encryptedKey, "CN=A", "", "password", 0); }},
        {"X509_MakeCRL", removed, status,
         [](World& w) {
             return X509_MakeCRL(w.target, w.root, w.encryptedKey, "password", "1,2020-01-01", "", 0);
         }},
        {"X509_VerifyCert", none, status, [](World& w) { return X509_VerifyCert(w.leaf, w.root); }},
        {"X509_VerifyCert", none, status, [](World& w) { return X509_VerifyCert(w.crl, w.root); }},
        {"X509_CheckCertInCRL", none, length,
         [](World& w) { return X509_CheckCertInCRL(w.leaf, w.crl, nullptr, nullptr, 0); }},
        {"X509_CheckCertInCRL", none, length,
         [](World& w) { return X509_CheckCertInCRL(w.leaf, w.crl, w.root, "2026-01-01", 0); }},
        {"X509_ValidatePath", none, length,
         [](World& w) { return X509_ValidatePath(Text(w.leaf + ";" + w.root), w.root, 0); }},
        {"X509_ValidatePath", none, length, [](World& w) { return X509_ValidatePath(w.bundle, nullptr, 0); }},
        {"X509_TextDump", part, length, [](World& w) { return X509_TextDump(w.target, w.leaf, 0); }},
        {"X509_TextDump", part, length, [](World& w) { return X509_TextDump(w.target, w.crl, 0); }},
        {"X509_GetCertFromP7Chain", part, length,
         [](World& w) { return X509_GetCertFromP7Chain(w.target, w.bundle, 2, 0); }},
        {"X509_GetCertFromPFX", removed, status, [](World& w) { return X509_GetCertFromPFX(w.target, w.pfx, 0); }},
        {"RSA_GetPrivateKeyFromPFX", replaces, status,
         [](World& w) { return RSA_GetPrivateKeyFromPFX(w.target, w.pfx, 0); }},
        {"CMS_MakeSigData", part, status,
         [](World& w) {
             return CMS_MakeSigData(w.target, w.plain, w.leaf, w.rsa, ZUL_CMS_INCLUDE_ATTRS | ZUL_CMS_ADD_SIGNTIME);
         }},
        {"CMS_MakeSigData", part, status,
         [](World& w) {
             return CMS_MakeSigData(w.target, w.large, w.leaf, w.rsa, ZUL_CMS_EXCLUDE_DATA | ZUL_CMS_FORMAT_BASE64);
         }},
        {"CMS_MakeSigData", part, status,
         [](World& w) {
             return CMS_MakeSigData(w.target, "", Text(w.leaf + ";" + w.root), "", ZUL_CMS_CERTS_ONLY);
         }},
        {"CMS_MakeSigDataFromString", part, status,
         [](World& w) { return CMS_MakeSigDataFromString(w.target, kMessage, w.leaf, w.rsa, ZUL_HASH_SHA256); }},
        {"CMS_MakeDetachedSig", part, status,
         [](World& w) { return CMS_MakeDetachedSig(w.target, w.hashed, w.leaf, w.rsa, ZUL_HASH_SHA256); }},
        {"CMS_MakeSigDataFromSigValue", part, status,
         [](World& w) {
             return CMS_MakeSigDataFromSigValue(w.target, w.signature, w.signature.length(), kMessage, 7, w.leaf,
                                                ZUL_HASH_SHA256);
         }},
        {"CMS_ReadSigData", part, length, [](World& w) { return CMS_ReadSigData(w.target, w.signedData, 0); }},
        {"CMS_ReadSigDataToString", none, length,
         [](World& w) { return CMS_ReadSigDataToString(w.text, kRoom, w.signedData, 0); }},
        {"CMS_VerifySigData", none, status,
         [](World& w) { return CMS_VerifySigData(w.signedData, w.leaf, nullptr, 0); }},
        {"CMS_GetSigDataDigest", none, length,
         [](World& w) { return CMS_GetSigDataDigest(w.text, kRoom, w.signedData, nullptr, 0); }},
        {"CMS_QuerySigData", none, length,
         [](World& w) { return CMS_QuerySigData(w.text, kRoom, w.signedData, "messageDigest", 0); }},
        {"CMS_MakeEnvData", removed, length,
         [](World& w) {
             return CMS_MakeEnvData(w.target, w.plain, Text(w.leaf + ";" + w.root), nullptr, 0,
                                    ZUL_CMS_CIPHER_AES256);
         }},
        {"CMS_MakeEnvDataFromString", removed, length,
         [](World& w) {
             return CMS_MakeEnvDataFromString(w.target, kMessage, w.leaf, nullptr, 0, ZUL_CMS_FORMAT_BASE64);
         }},
        {"CMS_ReadEnvData", removed, length,
         [](World& w) { return CMS_ReadEnvData(w.target, w.enveloped, w.leaf, w.rsa, 0); }},
        {"CMS_ReadEnvDataToString", none, length,
         [](World& w) { return CMS_ReadEnvDataToString(w.text, kRoom, w.enveloped, "", w.rsa, 0); }},
        {"CMS_QueryEnvData", none, length,
         [](World& w) { return CMS_QueryEnvData(w.text, kRoom, w.enveloped, "recipientIssuerName", 0); }},
        {"PFX_MakeFile", replaces, status,
         [](World& w) { return PFX_MakeFile(w.target, w.root, w.encryptedKey, "password", "name", 0); }},
        {"PFX_VerifySig", none, status, [](World& w) { return PFX_VerifySig(w.pfx, "password", 0); }},
        {"OCSP_MakeRequest", none, length,
         [](World& w) { return OCSP_MakeRequest(w.text, kRoom, w.root, w.leaf, "", 0); }},
        {"OCSP_ReadResponse", none, length,
         [](World& w) { return OCSP_ReadResponse(w.text, 1023, w.response, w.responder, "", 0); }},
        {"KEY_Make", none, length, [](World& w) { return KEY_Make(w.text, kRoom, "p-384", 0); }},
        {"KEY_Make", none, length, [](World& w) { return KEY_Make(w.text, kRoom, "rsa-1024", 0); }},
        {"KEY_Read", none, length, [](World& w) { return KEY_Read(w.text, kRoom, w.scryptKey, "password", 0); }},
        {"KEY_Read", none, length, [](World& w) { return KEY_Read(w.text, kRoom, w.subject, nullptr, 0); }},
        {"KEY_Read", none, length, [](World& w) { return KEY_Read(w.text, kRoom, w.ownKey, nullptr, 0); }},
        {"KEY_Save", replaces, status,
         [](World& w) { return KEY_Save(w.target, w.x, nullptr, nullptr, ZUL_KEY_FORMAT_PEM); }},
        {"KEY_Save", replaces, status,
         [](World& w) { return KEY_Save(w.target, w.ec, "password", "kdf=scrypt;n=16;r=1;p=1", 0); }},
        {"KEY_Public", none, length, [](World& w) { return KEY_Public(w.text, kRoom, w.ed); }},
        {"KEY_Query", none, length,
         [](World& w) { return KEY_Query(w.text, kRoom, w.rsa, "fingerprint", 0); }},
        {"KEY_Match", none, status, [](World& w) { return KEY_Match(w.ec, w.ecPublic); }},
        {"KEY_Check", none, status, [](World& w) { return KEY_Check(w.rsa, 0); }},
        {"KEY_Agree", none, length, [](World& w) { return KEY_Agree(w.bytes, kRoom, w.x, w.xPublic, 0); }},
        {"SIG_Sign", none, length,
         [](World& w) { return SIG_Sign(w.bytes, kRoom, kMessage, 7, w.rsa, nullptr, 0); }},
        {"SIG_Sign", none, length,
         [](World& w) { return SIG_Sign(w.bytes, kRoom, kMessage, 7, w.ec, nullptr, 0); }},
        {"SIG_Verify", none, status,
         [](World& w) {
             return SIG_Verify(w.signature, w.signature.length(), kMessage, 7, w.rsaPublic, "rsa-sha256", 0);
         }},
        {"SIG_Verify", none, status,
         [](World& w) {
             return SIG_Verify(w.ecSignature, w.ecSignature.length(), kMessage, 7, w.ecPublic, nullptr, 0);
         }},
        {"SIG_SignFile", none, length,
         [](World& w) { return SIG_SignFile(w.bytes, kRoom, w.large, w.ed, nullptr, 0); }},
        {"SIG_SignFile", none, length,
         [](World& w) { return SIG_SignFile(w.bytes, kRoom, w.large, w.rsa, "rsa-sha256", 0); }},
        {"SIG_VerifyFile", none, status,
         [](World& w) {
             return SIG_VerifyFile(w.fileSignature, w.fileSignature.length(), w.large, w.edPublic, nullptr, 0);
         }},
        {"SIG_SignDigest", none, length,
         [](World& w) { return SIG_SignDigest(w.bytes, kRoom, kDigest, 32, w.ec, nullptr, ZUL_SIG_RAW); }},
        {"SIG_VerifyDigest", none, status,
         [](World& w) {
             return SIG_VerifyDigest(w.digestSignature, w.digestSignature.length(), kDigest, 32, w.ecPublic,
                                     nullptr, 0);
         }},
        {"SEAL_MakeIdentity", none, length, [](World& w) { return SEAL_MakeIdentity(w.text, 74, 0); }},
        {"SEAL_Recipient", none, length, [](World& w) { return SEAL_Recipient(w.text, 62, w.identities); }},
        {"SEAL_File", replaces, status,
         [](World& w) { return SEAL_File(w.target, w.large, w.recipients, nullptr, 0); }},
        {"SEAL_File", replaces, status,
         [](World& w) { return SEAL_File(w.target, w.plain, w.recipient, nullptr, ZUL_SEAL_ARMOUR); }},
        {"SEAL_OpenFile", replaces, status,
         [](World& w) { return SEAL_OpenFile(w.target, w.sealed, w.identities, nullptr, 0); }},
        {"P12_Pack", replaces, status,
         [](World& w) {
             return P12_Pack(w.target, Text(w.leaf + ";" + w.root), w.privateKey, "password", "name",
                             ZUL_P12_LEGACY | ZUL_KEY_FORMAT_PEM);
         }},
        {"P12_Unpack", replaces, status,
         [](World& w) { return P12_Unpack(w.target, w.text, kRoom, w.p12, "password", 0); }},
        {"P12_List", none, length, [](World& w) { return P12_List(w.text, kRoom, w.p12, "password", 0); }},
        {"P12_List", none, length,
         [](World& w) { return P12_List(w.text, kRoom, w.p12, nullptr, ZUL_P12_JSON); }},
        {"CERT_SelfSign", replaces, status,
         [](World& w) { return CERT_SelfSign(w.target, w.ec, "CN=A;profile=ca;permit=dns:a.example", 0); }},
        {"CERT_Issue", replaces, status,
         [](World& w) { return CERT_Issue(w.target, w.authority, w.ed, w.ecKey, "CN=A;email=a@b.example", 0); }},
        {"CERT_Issue", replaces, status,
         [](World& w) {
             return CERT_Issue(w.target, w.authority, w.ed, w.pkcs10, "copy=subjectAltName", ZUL_CERT_DER);
         }},
        {"CERT_Request", replaces, status,
         [](World& w) { return CERT_Request(w.target, w.privateKey, "CN=A;dns=a.example", 0); }},
        {"CERT_IssueCRL", replaces, status,
         [](World& w) {
             return CERT_IssueCRL(w.target, w.authority, w.ed, w.list, Text("cert=" + w.subject), nullptr,
                                  0);
         }},
        {"CERT_Query", none, length,
         [](World& w) { return CERT_Query(w.text, kRoom, w.subject, "subjectAltName", 0); }},
        {"CERT_Report", none, length,
         [](World& w) { return CERT_Report(w.text, kRoom, w.bundle, ZUL_CERT_JSON); }},
        {"CERT_Report", none, length, [](World& w) { return CERT_Report(w.text, kRoom, w.list, 0); }},
        {"CERT_CheckName", none, status,
         [](World& w) { return CERT_CheckName(w.subject, "a.example", 0); }},
        {"CERT_CheckPath", none, status,
         [](World& w) {
             return CERT_CheckPath(w.text, kRoom, w.subject, nullptr, w.authority, w.list,
                                   "host=a.example;revocation=leaf", 0);
         }},
        {"CERT_CheckPath", none, status,
         [](World& w) {
             return CERT_CheckPath(w.text, kRoom, w.leaf, w.bundle, w.root, nullptr, nullptr, ZUL_CERT_JSON);
         }},
    };
    return all;
}

} // namespace calls
