/* message.c: signs a text, encrypts the signed message (message.p7m), then decrypts it and checks who signed
 * it, with an RSA key pair and certificate made for that. cc -Iinclude examples/message.c -Lbuild/native
 * -lzulcore -Wl,-rpath,$PWD/build/native -o message */
#include <stdio.h>
#include <string.h>

#include "zulcore.h"

static const char *const cert = "message_cert.pem", *const keyFile = "message_private.pem";
static const char *const inner = "message_signed.p7m", *const outer = "message.p7m";
static const char* const password = "correct horse";

static char key[90000]; /* more than the longest key string */

static int failed(const char* what) {
    char text[512] = "";
    ZUL_LastError(text, sizeof text - 1);
    fprintf(stderr, "%s: error %d %s\n", what, ZUL_ErrorCode(), text);
    WIPE_Data(key, sizeof key);
    return 1;
}

/* In real life an authority makes the certificate, for each of the two who exchange messages. */
static int make_certificate(void) {
    const int aes = ZUL_PBE_PBES2 | ZUL_PBE_CIPHER_AES256 | ZUL_HASH_SHA256;
    const int usage = ZUL_KEYUSAGE_DIGITALSIGNATURE | ZUL_KEYUSAGE_KEYENCIPHERMENT;
    if (RSA_MakeKeys("message_public.pem", keyFile, 2048, 4, 40, 100000, password, NULL, 0,
                     ZUL_KEY_FORMAT_PEM | aes) != 0)
        return failed("make keys");
    if (X509_MakeCertSelf(cert, keyFile, 1, 2, "C=AU;O=Example;CN=Alice", "serialNumber=0a3f", usage,
                          password, ZUL_HASH_SHA256 | ZUL_X509_FORMAT_PEM | ZUL_X509_NO_BASIC) != 0)
        return failed("make certificate");
    return 0;
}

int main(void) {
    const char* text = "Meet me at noon.";
    char found[100], signer[100];
    if (make_certificate() != 0)
        return 1;
    if (RSA_ReadEncPrivateKey(key, sizeof key - 1, keyFile, password, 0) < 0)
        return failed("private key");

    /* The sender signs with the own key, then encrypts for the recipient's certificate: an encrypted message
     * alone does not show who made it. */
    if (CMS_MakeSigDataFromString(inner, text, cert, key,
                                  ZUL_HASH_SHA256 | ZUL_CMS_INCLUDE_ATTRS | ZUL_CMS_ADD_SIGNTIME) != 0)
        return failed("sign");
    if (CMS_MakeEnvData(outer, inner, cert, NULL, 0, ZUL_CMS_CIPHER_AES256) != 1) /* recipients served */
        return failed("encrypt");

    /* The recipient decrypts with the own key and names the certificate that has to be the signer's. */
    if (CMS_ReadEnvData("message_opened.p7m", outer, cert, key, 0) != 0)
        return failed("decrypt");
    WIPE_Data(key, sizeof key);
    if (CMS_VerifySigData("message_opened.p7m", cert, NULL, 0) != 0)
        return failed("verify");
    if (CMS_ReadSigDataToString(found, sizeof found - 1, "message_opened.p7m", 0) < 0)
        return failed("content");
    if (X509_CertSubjectName(cert, signer, sizeof signer - 1, NULL, 0) < 0)
        return failed("name");

    if (strcmp(found, text) != 0)
        return failed("another text");
    printf("good message of %s: %s\n", signer, found);
    return 0;
}
