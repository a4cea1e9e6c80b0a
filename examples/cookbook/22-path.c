/* Whether a certificate can be relied on. */
#include <stdio.h>

#include "zulcore.h"

static int failed(const char* what) {
    char text[512] = "";
    ZUL_LastError(text, sizeof text - 1);
    fprintf(stderr, "%s: error %d %s\n", what, ZUL_ErrorCode(), text);
    return 1;
}

int main(void) {
    static char root[90000], www[90000];
    if (KEY_Make(root, sizeof root - 1, "p-256", 0) < 0 || KEY_Make(www, sizeof www - 1, "p-256", 0) < 0 ||
        CERT_SelfSign("root.pem", root, "CN=Root; profile=ca", 0) != 0 ||
        CERT_Issue("www.pem", "root.pem", root, www, "CN=www; profile=server; dns=www.example.com", 0) != 0)
        return failed("certificates");
    /* [show] */
    char report[4096];
    int code = CERT_CheckPath(report, sizeof report - 1, "www.pem", NULL, "root.pem", NULL,
                              "host=www.example.com; purpose=server", 0);
    if (code != 0)
        failed("not to be relied on");
    puts(report);
    /* [end] */
    int other = CERT_CheckPath(NULL, 0, "www.pem", NULL, "root.pem", NULL, "host=www.example.org", 0);
    return code != 0 || other != NO_MATCH_ERROR;
}
