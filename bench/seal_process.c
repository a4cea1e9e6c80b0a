/* seal_process seal|open OUT IN KEY: a process that seals or opens one file, for whole_seal.py. */
#include <stdio.h>
#include <string.h>

#include "zulcore.h"

int main(int argc, char** argv) {
    if (argc != 5) {
        fprintf(stderr, "usage: seal_process seal|open OUT IN KEY\n");
        return 2;
    }
    const int seals = strcmp(argv[1], "seal") == 0;
    const int code = seals ? SEAL_File(argv[2], argv[3], argv[4], NULL, 0)
                           : SEAL_OpenFile(argv[2], argv[3], argv[4], NULL, 0);
    if (code != 0) {
        char text[512] = "";
        ZUL_LastError(text, sizeof text - 1);
        fprintf(stderr, "seal_process: error %d %s\n", code, text);
    }
    return code != 0;
}
