/* A signature of a file. */
#include <stdio.h>

#include "zulcore.h"

static int failed(const char* what) {
    char text[512] = "";
    ZUL_LastError(text, sizeof text - 1);
    fprintf(stderr, "%s: error %d %s\n", what, ZUL_ErrorCode(), text);
    return 1;
}

int main(void) {
    static char key[90000], public[90000];
    FILE* file = fopen("report.txt", "wb");
    if (file == NULL || fputs("a report", file) < 0 || fclose(file) != 0)
        return 1;
    if (KEY_Make(key, sizeof key - 1, "p-256", 0) < 0 ||
        KEY_Save("my.key", key, "correct horse", NULL, ZUL_KEY_FORMAT_PEM) != 0 ||
        KEY_Public(public, sizeof public - 1, key) < 0)
        return failed("keys");
    /* [show] */
    unsigned char signature[512];
    if (KEY_Read(key, sizeof key - 1, "my.key", "correct horse", 0) < 0)
        return failed("private key");
    int length = SIG_SignFile(signature, sizeof signature, "report.txt", key, NULL, 0);
    WIPE_Data(key, sizeof key);
    if (length < 0)
        return failed("sign");

    switch (SIG_VerifyFile(signature, length, "report.txt", public, NULL, 0)) {
    case 0:
        puts("good signature");
        break;
    case SIGNATURE_ERROR:
        puts("not its signature");
        break;
    default:
        return failed("verify");
    }
    /* [end] */
    signature[length - 1] ^= 1;
    return SIG_VerifyFile(signature, length, "report.txt", public, NULL, 0) != SIGNATURE_ERROR;
}
