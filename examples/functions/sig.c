/* sig.c: signatures with keys of any kind. */
#include "expect.h"

static char key[90001], public[90001];

int main(void) {
    static const unsigned char text[] = "Meet me at noon.";
    unsigned char signature[512];
    int length;
    expect("keys", write_file("report.txt", "a report", 8) && KEY_Make(key, 90000, "ed25519", 0) > 0 &&
                       KEY_Public(public, 90000, key) > 0);
    {
        /* [SIG_Sign] */
        length =
            SIG_Sign(signature, sizeof signature, text, sizeof text, key, NULL, 0); /* as the key has it */
        if (length < 0)
            printf("error %d\n", ZUL_ErrorCode());
        /* [end] */
        expect("SIG_Sign", length == 64);
    }
    {
        /* [SIG_Verify] */
        if (SIG_Verify(signature, length, text, sizeof text, public, NULL, 0) == SIGNATURE_ERROR)
            puts("not its signature");
        /* [end] */
        expect("SIG_Verify", SIG_Verify(signature, length, text, sizeof text, public, NULL, 0) == 0 &&
                                 SIG_Verify(signature, length, text, 3, public, NULL, 0) == SIGNATURE_ERROR);
    }
    {
        expect("rsa", KEY_Make(key, 90000, "rsa-2048", 0) > 0 && KEY_Public(public, 90000, key) > 0);
        /* [SIG_SignFile] */
        length = SIG_SignFile(signature, sizeof signature, "report.txt", key, "rsa-pss-sha256", 0);
        /* [end] */
        expect("SIG_SignFile", length == 256);
        /* [SIG_VerifyFile] */
        if (SIG_VerifyFile(signature, length, "report.txt", public, "rsa-pss-sha256", 0) != 0)
            puts("no good signature");
        /* [end] */
        expect("SIG_VerifyFile",
               SIG_VerifyFile(signature, length, "report.txt", public, "rsa-pss-sha256", 0) == 0 &&
                   SIG_VerifyFile(signature, length, "report.txt", public, "rsa-sha256", 0) != 0);
    }
    {
        expect("p-256", KEY_Make(key, 90000, "p-256", 0) > 0 && KEY_Public(public, 90000, key) > 0);
        /* [SIG_SignDigest] */
        unsigned char digest[32];
        HASH_File(digest, sizeof digest, "report.txt", ZUL_HASH_SHA256);
        length = SIG_SignDigest(signature, sizeof signature, digest, sizeof digest, key, "ecdsa-sha256",
                                ZUL_SIG_RAW);
        /* [end] */
        expect("SIG_SignDigest", length == 64);
        /* [SIG_VerifyDigest] */
        if (SIG_VerifyDigest(signature, length, digest, sizeof digest, public, "ecdsa-sha256", ZUL_SIG_RAW) !=
            0)
            puts("no good signature");
        /* [end] */
        expect("SIG_VerifyDigest",
               SIG_VerifyDigest(signature, length, digest, 32, public, "ecdsa-sha256", ZUL_SIG_RAW) == 0);
        digest[0] ^= 1;
        expect("SIG_VerifyDigest of another digest",
               SIG_VerifyDigest(signature, length, digest, 32, public, "ecdsa-sha256", ZUL_SIG_RAW) ==
                   SIGNATURE_ERROR);
    }
    return faults;
}
