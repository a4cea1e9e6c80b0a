/* wipe.c: overwriting memory and files. */
#include "expect.h"

int main(void) {
    {
        char password[20] = "correct horse";
        /* [WIPE_Data] */
        WIPE_Data(password, sizeof password); /* a compiler may leave out a memset, but not this */
        /* [end] */
        expect("WIPE_Data", password[0] == 0 && memcmp(password, password + 1, sizeof password - 1) == 0);
    }
    {
        expect("write", write_file("plain.txt", "secret", 6));
        /* [WIPE_File] */
        if (WIPE_File("plain.txt", 0) != 0)
            puts("still there");
        /* [end] */
        FILE* file = fopen("plain.txt", "rb");
        expect("WIPE_File", file == NULL);
    }
    return faults;
}
