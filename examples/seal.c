/* seal.c FILE: makes an identity, encrypts the file for its recipient (sealed.age) and under a password
 * (password.age), and opens both again (opened_1, opened_2), which have to be equal to the file. `age` reads
 * and writes such files too. cc -Iinclude examples/seal.c -Lbuild/native -lzulcore
 * -Wl,-rpath,$PWD/build/native -o seal */
#include <stdio.h>
#include <string.h>

#include "zulcore.h"

static int failed(const char* what) {
    char text[512] = "";
    ZUL_LastError(text, sizeof text - 1);
    fprintf(stderr, "%s: error %d %s\n", what, ZUL_ErrorCode(), text);
    return 1;
}

int main(int argc, char** argv) {
    char identity[75], recipient[63], digests[3][65];
    const char *file = argv[1], *password = "correct horse";
    if (argc != 2) {
        fprintf(stderr, "usage: seal FILE\n");
        return 2;
    }
    if (SEAL_MakeIdentity(identity, 74, 0) < 0 || SEAL_Recipient(recipient, 62, identity) < 0)
        return failed("make identity");
    if (SEAL_File("sealed.age", file, recipient, NULL, 0) != 0 ||
        SEAL_File("password.age", file, NULL, password, ZUL_SEAL_ARMOUR) != 0)
        return failed("seal");
    if (SEAL_OpenFile("opened_1", "sealed.age", identity, NULL, 0) != 0 ||
        SEAL_OpenFile("opened_2", "password.age", NULL, password, 0) != 0)
        return failed("open");
    WIPE_Data(identity, sizeof identity);

    if (HASH_HexFromFile(digests[0], 64, file, ZUL_HASH_SHA256) < 0 ||
        HASH_HexFromFile(digests[1], 64, "opened_1", ZUL_HASH_SHA256) < 0 ||
        HASH_HexFromFile(digests[2], 64, "opened_2", ZUL_HASH_SHA256) < 0)
        return failed("compare");
    if (strcmp(digests[0], digests[1]) != 0 || strcmp(digests[0], digests[2]) != 0) {
        puts("not the same file");
        return 1;
    }
    printf("sealed for %s and opened\n", recipient);
    return 0;
}
