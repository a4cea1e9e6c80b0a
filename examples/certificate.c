/* certificate.c: makes an RSA key pair and a self-signed certificate (certificate.pem), prints what the
 * certificate says and verifies it. cc -Iinclude examples/certificate.c -Lbuild/native -lzulcore
 * -Wl,-rpath,$PWD/build/native -o certificate */
#include <stdio.h>

#include "zulcore.h"

static const char *const file = "certificate.pem", *const keyFile = "certificate_private.pem";

static int failed(const char* what) {
    char text[512] = "";
    ZUL_LastError(text, sizeof text - 1);
    fprintf(stderr, "%s: error %d %s\n", what, ZUL_ErrorCode(), text);
    return 1;
}

int main(void) {
    static const char* const queries[] = {"subjectName",  "issuerName",     "notBefore",         "notAfter",
                                          "serialNumber", "keyUsageString", "signatureAlgorithm"};
    const char* password = "correct horse";
    const int aes = ZUL_PBE_PBES2 | ZUL_PBE_CIPHER_AES256 | ZUL_HASH_SHA256;
    const int usage = ZUL_KEYUSAGE_KEYCERTSIGN | ZUL_KEYUSAGE_CRLSIGN;
    if (RSA_MakeKeys("certificate_public.pem", keyFile, 2048, 4, 40, 100000, password, NULL, 0,
                     ZUL_KEY_FORMAT_PEM | aes) != 0)
        return failed("make keys");
    /* valid for two years from now; in an authority's real life the serial number is random */
    if (X509_MakeCertSelf(file, keyFile, 1, 2, "C=AU;O=Example;CN=Example Root", "serialNumber=0a3f", usage,
                          password, ZUL_HASH_SHA256 | ZUL_X509_FORMAT_PEM) != 0)
        return failed("make certificate");

    for (size_t i = 0; i < sizeof queries / sizeof *queries; i++) {
        char answer[256];
        if (X509_QueryCert(answer, sizeof answer - 1, file, queries[i], 0) < 0)
            return failed(queries[i]);
        printf("%s: %s\n", queries[i], answer);
    }
    if (X509_QueryCert(NULL, 0, file, "isCA", 0) != 1) /* a number is the result itself */
        return failed("isCA");

    if (X509_VerifyCert(file, file) != 0) /* the signature, nothing else */
        return failed("verify");
    if (X509_ValidatePath(file, NULL, 0) != 0) /* names and dates too */
        return failed("path");
    puts("good certificate");
    return 0;
}
