/* cms.c: signed and enveloped messages. */
#include <stdlib.h>

#include "expect.h"

static char key[90001];

static void sign(void) {
    {
        /* [CMS_MakeSigData] */
        if (CMS_MakeSigData("report.p7m", "report.txt", "alice.pem", key,
                            ZUL_HASH_SHA256 | ZUL_CMS_INCLUDE_ATTRS | ZUL_CMS_ADD_SIGNTIME) != 0)
            printf("error %d\n", ZUL_ErrorCode());
        /* [end] */
        expect("CMS_MakeSigData", CMS_VerifySigData("report.p7m", "alice.pem", NULL, 0) == 0);
    }
    {
        /* [CMS_MakeSigDataFromString] */
        CMS_MakeSigDataFromString("text.p7m", "Meet me at noon.", "alice.pem", key,
                                  ZUL_HASH_SHA256 | ZUL_CMS_INCLUDE_ATTRS);
        /* [end] */
        expect("CMS_MakeSigDataFromString", CMS_VerifySigData("text.p7m", "alice.pem", NULL, 0) == 0);
    }
    {
        /* [CMS_MakeDetachedSig] */
        char digest[65];
        HASH_HexFromFile(digest, 64, "report.txt", ZUL_HASH_SHA256);
        CMS_MakeDetachedSig("report.p7s", digest, "alice.pem", key, ZUL_HASH_SHA256 | ZUL_CMS_INCLUDE_ATTRS);
        /* [end] */
        expect("CMS_MakeDetachedSig",
               CMS_VerifySigData("report.p7s", "alice.pem", digest, 0) == 0 &&
                   CMS_VerifySigData("report.p7s", "alice.pem", NULL, 0) == NO_DATA_ERROR);
    }
    {
        /* [CMS_MakeSigDataFromSigValue] */
        /* A smart card may have made the signature; here the library does. */
        static const unsigned char text[] = {'n', 'o', 'o', 'n'};
        unsigned char signature[256];
        SIG_Sign(signature, sizeof signature, text, sizeof text, key, "rsa-sha256", 0);
        CMS_MakeSigDataFromSigValue("card.p7m", signature, sizeof signature, text, sizeof text, "alice.pem",
                                    ZUL_HASH_SHA256);
        /* [end] */
        expect("CMS_MakeSigDataFromSigValue", CMS_VerifySigData("card.p7m", "alice.pem", NULL, 0) == 0);
    }
}

static void verify(void) {
    {
        /* [CMS_VerifySigData] */
        /* The certificate that has to be the signer's is named: without it anybody can have signed. */
        int status = CMS_VerifySigData("report.p7m", "alice.pem", NULL, 0);
        if (status == SIGNATURE_ERROR)
            puts("changed, or signed by somebody else");
        /* [end] */
        expect("CMS_VerifySigData", status == 0 && CMS_VerifySigData("report.p7m", "bob.pem", NULL, 0) != 0);
    }
    {
        /* [CMS_ReadSigData] */
        if (CMS_VerifySigData("report.p7m", "alice.pem", NULL, 0) == 0)
            CMS_ReadSigData("opened.txt", "report.p7m", 0);
        /* [end] */
        expect("CMS_ReadSigData", same_file("opened.txt", "report.txt"));
    }
    {
        /* [CMS_ReadSigDataToString] */
        int length = CMS_ReadSigDataToString(NULL, 0, "text.p7m", 0);
        char* text = malloc((size_t)length + 1);
        if (text == NULL)
            return;
        CMS_ReadSigDataToString(text, length, "text.p7m", 0);
        /* [end] */
        expect("CMS_ReadSigDataToString", strcmp(text, "Meet me at noon.") == 0);
        free(text);
    }
    {
        /* [CMS_GetSigDataDigest] */
        /* For content of any size that lies elsewhere: its digest has to be this one. */
        char signed_[65], found[65];
        if (CMS_GetSigDataDigest(signed_, 64, "report.p7s", "alice.pem", 0) > 0 &&
            HASH_HexFromFile(found, 64, "report.txt", ZUL_HASH_SHA256) > 0 && strcmp(signed_, found) == 0)
            puts("signed by Alice");
        /* [end] */
        expect("CMS_GetSigDataDigest", strcmp(signed_, found) == 0);
    }
    {
        /* [CMS_QuerySigData] */
        char digest[20];
        int signers = CMS_QuerySigData(NULL, 0, "report.p7m", "CountOfSigners", 0); /* 1 */
        CMS_QuerySigData(digest, sizeof digest - 1, "report.p7m", "digestAlgorithm", 0);
        /* [end] */
        expect("CMS_QuerySigData", signers == 1 && strncmp(digest, "sha256", 6) == 0);
    }
}

static void encrypt(void) {
    {
        /* [CMS_MakeEnvData] */
        int served =
            CMS_MakeEnvData("secret.p7m", "report.txt", "alice.pem;bob.pem", NULL, 0, ZUL_CMS_CIPHER_AES256);
        if (served != 2)
            puts("not for both of them");
        /* [end] */
        expect("CMS_MakeEnvData", served == 2);
    }
    {
        /* [CMS_ReadEnvData] */
        if (CMS_ReadEnvData("opened.txt", "secret.p7m", "alice.pem", key, 0) != 0)
            printf("error %d\n", ZUL_ErrorCode());
        /* [end] */
        expect("CMS_ReadEnvData", same_file("opened.txt", "report.txt"));
    }
    {
        /* [CMS_MakeEnvDataFromString CMS_ReadEnvDataToString] */
        char text[100];
        CMS_MakeEnvDataFromString("note.p7m", "Meet me at noon.", "alice.pem", NULL, 0,
                                  ZUL_CMS_CIPHER_AES256);
        CMS_ReadEnvDataToString(text, sizeof text - 1, "note.p7m", NULL, key,
                                0); /* tried for each recipient */
        /* [end] */
        expect("CMS_ReadEnvDataToString", strcmp(text, "Meet me at noon.") == 0);
    }
    {
        /* [CMS_QueryEnvData] */
        char cipher[20];
        int recipients = CMS_QueryEnvData(NULL, 0, "secret.p7m", "CountOfRecipients", 0);
        CMS_QueryEnvData(cipher, sizeof cipher - 1, "secret.p7m", "contentEncryptionAlgorithm", 0);
        /* [end] */
        expect("CMS_QueryEnvData", recipients == 2 && strncmp(cipher, "aes256", 6) == 0);
    }
}

int main(void) {
    static const char* const names[] = {"bob", "alice"};
    expect("report", write_file("report.txt", "a report", 8));
    for (int i = 0; i < 2; i++) {
        char file[20], text[100];
        snprintf(file, sizeof file, "%s.pem", names[i]);
        snprintf(text, sizeof text, "CN=%s; keyUsage=digitalSignature, keyEncipherment", names[i]);
        expect("certificate",
               KEY_Make(key, 90000, "rsa-2048", 0) > 0 && CERT_SelfSign(file, key, text, 0) == 0);
    }
    sign();
    verify();
    encrypt();
    return faults;
}
