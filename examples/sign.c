/* sign.c FILE: makes an RSA key pair (sign_public.pem, sign_private.pem), signs the file and checks the
 * signature. cc -Iinclude examples/sign.c -Lbuild/native -lzulcore -Wl,-rpath,$PWD/build/native -o sign */
#include <stdio.h>

#include "zulcore.h"

#define SHA256_SIGNATURE (ZUL_EMSIG_PKCSV1_5 | ZUL_HASH_SHA256)

static char key[90000]; /* more than the longest key string */

static int failed(const char* what) {
    char text[512] = "";
    ZUL_LastError(text, sizeof text - 1);
    fprintf(stderr, "%s: error %d %s\n", what, ZUL_ErrorCode(), text);
    return 1;
}

int main(int argc, char** argv) {
    unsigned char digest[32], signature[256], found[32];
    const char *file = argv[1], *password = "correct horse";
    const int aes = ZUL_PBE_PBES2 | ZUL_PBE_CIPHER_AES256 | ZUL_HASH_SHA256;
    if (argc != 2) {
        fprintf(stderr, "usage: sign FILE\n");
        return 2;
    }
    if (RSA_MakeKeys("sign_public.pem", "sign_private.pem", 2048, 4, 40, 100000, password, NULL, 0,
                     ZUL_KEY_FORMAT_PEM_ALT | aes) != 0)
        return failed("make keys");
    if (HASH_File(digest, 32, file, ZUL_HASH_SHA256) < 0)
        return failed(file);

    if (RSA_ReadEncPrivateKey(key, sizeof key - 1, "sign_private.pem", password, 0) < 0)
        return failed("private key");
    if (RSA_EncodeMsg(signature, 256, digest, 32, SHA256_SIGNATURE | ZUL_EMSIG_DIGESTONLY) < 0 ||
        RSA_RawPrivate(signature, 256, key, 0) != 0)
        return failed("sign");
    WIPE_Data(key, sizeof key);

    if (RSA_ReadPublicKey(key, sizeof key - 1, "sign_public.pem") < 0)
        return failed("public key");
    /* the signature's algorithm and its digest, which has to be the file's */
    if (RSA_RawPublic(signature, 256, key, 0) != 0 ||
        RSA_DecodeMsg(NULL, 0, signature, 256, SHA256_SIGNATURE | ZUL_EMSIG_GETALG) != ZUL_HASH_SHA256 ||
        RSA_DecodeMsg(found, 32, signature, 256, SHA256_SIGNATURE) != 32)
        return failed("verify");
    for (int i = 0; i < 32; i++)
        if (found[i] != digest[i])
            return failed("verify");
    puts("good signature");
    return 0;
}
