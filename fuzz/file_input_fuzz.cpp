#include <cstring>
#include <string>

#include "frame/err.h"
#include "fuzz_support.h"
#include "zulcore.h"

// The same bytes as a file, which is read as a stream, and as text give the same answers. Readers of whole
// files take any content, and the file is what it was.

using fuzz::require;

static const fuzz::Folder& folder() {
    static const fuzz::Folder made;
    return made;
}

static void same_queries(const char* file, const char* text) {
    char fromFile[2000], fromText[2000];
    for (const char* word : {"serialNumber", "signatureAlgorithm", "keyUsageFlags", "notAfter", "issuerName",
                             "subjectName", "subjectPublicKeyAlgorithm", "isCA", "rfc822Name"}) {
        *fromFile = *fromText = '\0';
        const int a = X509_QueryCert(fromFile, 1999, file, word, 0),
                  b = X509_QueryCert(fromText, 1999, text, word, 0);
        require(a == b && strcmp(fromFile, fromText) == 0);
    }
    require(X509_CertIsValidNow(file, 0) == X509_CertIsValidNow(text, 0));
    // Only where the three parts of a signed object are not found has a file another code than a text.
    const int ofFile = X509_VerifyCert(file, text), ofText = X509_VerifyCert(text, file);
    require(ofFile == ofText || (ofFile == INVALID_DATA_ERROR && ofText == BAD_FORMAT_ERROR));
    require(X509_ValidatePath(file, nullptr, 1) == X509_ValidatePath(text, nullptr, 1));
}

static void same_messages(const char* file, const char* text) {
    char fromFile[4000] = {}, fromText[4000] = {};
    const auto same = [&](int a, int b) {
        require(a == b && strcmp(fromFile, fromText) == 0);
        *fromFile = *fromText = '\0';
    };
    same(CMS_ReadSigDataToString(fromFile, 3999, file, 0), CMS_ReadSigDataToString(fromText, 3999, text, 0));
    same(CMS_GetSigDataDigest(fromFile, 3999, file, nullptr, 0),
         CMS_GetSigDataDigest(fromText, 3999, text, nullptr, 0));
    same(CMS_VerifySigData(file, nullptr, nullptr, 0), CMS_VerifySigData(text, nullptr, nullptr, 0));
    for (const char* word :
         {"Version", "eContentType", "HASsignedAttributes", "SigningTime", "CountOfSignerInfos"})
        same(CMS_QuerySigData(fromFile, 3999, file, word, 0),
             CMS_QuerySigData(fromText, 3999, text, word, 0));
    for (const char* word : {"Version", "contentEncryptionAlgorithm", "sizeofEncryptedContent"})
        same(CMS_QueryEnvData(fromFile, 3999, file, word, 0),
             CMS_QueryEnvData(fromText, 3999, text, word, 0));
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string in = folder().file("in"), out = folder().file("out"), text = fuzz::as_pem(data, size);
    fuzz::write_file(in, data, size);
    if (size > 2 && data[0] == 0x30) { // anything else may be text of its own
        same_queries(in.c_str(), text.c_str());
        same_messages(in.c_str(), text.c_str());
        const int a = X509_TextDump(out.c_str(), in.c_str(), 0);
        const std::string dumped = fuzz::content_of(out);
        const int b = X509_TextDump(out.c_str(), text.c_str(), 0);
        require(a == b && (a != 0 || dumped == fuzz::content_of(out)));
    }
    const int decoded = PEM_FileToBinFile(out.c_str(), in.c_str());
    require(decoded == 0 || decoded == -BAD_FORMAT_ERROR);
    (void)CMS_ReadSigData(out.c_str(), in.c_str(), 0);
    const unsigned char key[32] = {7}, iv[16] = {8};
    const int code = CIPHER_File(0, out.c_str(), in.c_str(), key, iv, "Aes256/CBC", 0);
    require(code == 0 || code == BAD_LENGTH_ERROR || code == DECRYPT_ERROR);
    unsigned char digest[64], same[64];
    require(HASH_File(digest, 64, in.c_str(), ZUL_HASH_SHA256) == 32 &&
            HASH_Bytes(same, 64, size == 0 ? in.data() : static_cast<const void*>(data),
                       static_cast<int>(size), ZUL_HASH_SHA256) == 32 &&
            memcmp(digest, same, 32) == 0);
    require(HASH_File(digest, 64, in.c_str(), ZUL_HASH_SHA256 | ZUL_HASH_MODE_TEXT) == 32);
    require(fuzz::content_of(in) == std::string(reinterpret_cast<const char*>(data), size));
    const int seeded = RNG_UpdateSeedFile(in.c_str(), 0);
    require((seeded == 0) == (size >= 64));
    return 0;
}
