/* digest.c: prints the SHA-256 of a file.
 * cc -Iinclude examples/digest.c -Lbuild/native -lzulcore -Wl,-rpath,$PWD/build/native -o digest */
#include <stdio.h>

#include "zulcore.h"

int main(int argc, char** argv) {
    char hex[65] = "", text[100] = "";
    int length = HASH_HexFromFile(hex, 64, argc > 1 ? argv[1] : "", ZUL_HASH_SHA256);
    if (length < 0) {
        ZUL_ErrorLookup(text, sizeof text, length);
        fprintf(stderr, "error %d: %s\n", -length, text);
        return 1;
    }
    puts(hex);
    return 0;
}
