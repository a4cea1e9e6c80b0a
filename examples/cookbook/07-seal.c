/* A file that one person alone can open. */
#include <stdio.h>

#include "zulcore.h"

static int failed(const char* what) {
    char text[512] = "";
    ZUL_LastError(text, sizeof text - 1);
    fprintf(stderr, "%s: error %d %s\n", what, ZUL_ErrorCode(), text);
    return 1;
}

int main(void) {
    char before[65], after[65];
    FILE* file = fopen("report.txt", "wb");
    if (file == NULL || fputs("a report", file) < 0 || fclose(file) != 0)
        return 1;
    /* [show] */
    char identity[75], recipient[63];
    if (SEAL_MakeIdentity(identity, 74, 0) < 0 || SEAL_Recipient(recipient, 62, identity) < 0)
        return failed("identity");
    if (SEAL_File("report.txt.age", "report.txt", recipient, NULL, 0) != 0)
        return failed("seal");
    if (SEAL_OpenFile("opened.txt", "report.txt.age", identity, NULL, 0) != 0)
        return failed("open");
    WIPE_Data(identity, sizeof identity);
    /* [end] */
    HASH_HexFromFile(before, 64, "report.txt", ZUL_HASH_SHA256);
    HASH_HexFromFile(after, 64, "opened.txt", ZUL_HASH_SHA256);
    for (int i = 0; i < 64; i++)
        if (before[i] != after[i])
            return 1;
    return 0;
}
