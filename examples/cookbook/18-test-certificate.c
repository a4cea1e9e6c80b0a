/* A certificate for a server on this machine. */
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
    static char key[90000];
    if (KEY_Make(key, sizeof key - 1, "p-256", 0) < 0)
        return failed("key");
    if (KEY_Save("test.key", key, "correct horse", NULL, ZUL_KEY_FORMAT_PEM) != 0)
        return failed("key file");
    if (CERT_SelfSign("test.pem", key, "CN=localhost; profile=server; dns=localhost; ip=127.0.0.1, ::1", 0) !=
        0)
        return failed("certificate");
    /* [end] */
    return CERT_CheckName("test.pem", "::1", 0) != 0 ||
           CERT_CheckName("test.pem", "example.com", 0) != NO_MATCH_ERROR;
}
