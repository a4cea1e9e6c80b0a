/* pfx.c: PKCS #12 files of one certificate and key. */
#include "expect.h"

int main(void) {
    static const char* const password = "correct horse";
    const int aes = ZUL_PBE_PBES2 | ZUL_PBE_CIPHER_AES256 | ZUL_HASH_SHA256 | ZUL_KEY_FORMAT_PEM;
    expect("key", RSA_MakeKeys("my.pub", "my.key", 2048, 4, 40, 1000, password, NULL, 0, aes) == 0 &&
                      X509_MakeCertSelf("my.cer", "my.key", 1, 2, "CN=Me", NULL, 0, password, 3) == 0);
    /* [PFX_MakeFile] */
    if (PFX_MakeFile("my.p12", "my.cer", "my.key", password, "Me", 0) != 0)
        printf("error %d\n", ZUL_ErrorCode());
    /* [end] */
    /* [PFX_VerifySig] */
    if (PFX_VerifySig("my.p12", password, 0) == SIGNATURE_ERROR)
        puts("a wrong password, or changed");
    /* [end] */
    expect("PFX_VerifySig", PFX_VerifySig("my.p12", password, 0) == 0 &&
                                PFX_VerifySig("my.p12", "wrong", 0) == SIGNATURE_ERROR);
    return faults;
}
