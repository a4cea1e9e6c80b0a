/* A key pair. */
#include <stdio.h>

#include "zulcore.h"

static int failed(const char* what) {
    char text[512] = "";
    ZUL_LastError(text, sizeof text - 1);
    fprintf(stderr, "%s: error %d %s\n", what, ZUL_ErrorCode(), text);
    return 1;
}

int main(void) {
    /* [show] */
    static char key[90000]; /* a key string: text that this process alone can open */
    if (KEY_Make(key, sizeof key - 1, "ed25519", 0) < 0)
        return failed("make");
    if (KEY_Save("my.key", key, "correct horse", NULL, ZUL_KEY_FORMAT_PEM) != 0)
        return failed("private key");
    if (KEY_Public(key, sizeof key - 1, key) < 0 ||
        KEY_Save("my.pub", key, NULL, NULL, ZUL_KEY_FORMAT_PEM) != 0)
        return failed("public key");
    /* [end] */
    static char again[90000];
    if (KEY_Read(again, sizeof again - 1, "my.key", "correct horse", 0) < 0)
        return failed("read");
    return KEY_Match(again, key);
}
