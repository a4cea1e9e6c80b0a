/* The digest of a file. */
#include <stdio.h>
#include <string.h>

#include "zulcore.h"

int main(void) {
    char again[65] = "";
    FILE* file = fopen("report.txt", "wb");
    if (file == NULL || fputs("abc", file) < 0 || fclose(file) != 0)
        return 1;
    /* [show] */
    char digest[65];
    int length = HASH_HexFromFile(digest, 64, "report.txt", ZUL_HASH_SHA256);
    if (length < 0)
        return -length; /* the error code, negated */
    puts(digest);
    /* [end] */
    return HASH_HexFromBytes(again, 64, "abc", 3, ZUL_HASH_SHA256) != 64 || strcmp(digest, again) != 0;
}
