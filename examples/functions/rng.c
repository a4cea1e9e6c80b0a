/* rng.c [ask]: random numbers. What asks the user runs only with the argument. */
#include "expect.h"

int main(int argc, char** argv) {
    (void)argv;
    {
        /* [RNG_Bytes] */
        unsigned char key[32];
        RNG_Bytes(key, sizeof key, NULL, 0);
        /* [end] */
        static const unsigned char zeros[32];
        expect("RNG_Bytes", memcmp(key, zeros, 32) != 0);
    }
    {
        /* [RNG_Number] */
        int die = RNG_Number(1, 6);
        /* [end] */
        expect("RNG_Number", die >= 1 && die <= 6);
    }
    {
        /* [RNG_Test] */
        if (RNG_Test("report.txt", 0) != 0)
            puts("do not use this machine's random numbers");
        /* [end] */
        expect("RNG_Test", file_begins("report.txt", ""));
    }
    {
        unsigned char seed[64];
        expect("seed", RNG_Bytes(seed, 64, NULL, 0) == 0 && write_file("seed.bin", seed, 64));
        /* [RNG_Initialize] */
        if (RNG_Initialize("seed.bin", 0) != 0) /* reads the file and writes a new one over it */
            puts("no seed file");
        /* [end] */
        char after[64];
        FILE* file = fopen("seed.bin", "rb");
        expect("RNG_Initialize",
               file != NULL && fread(after, 1, 64, file) == 64 && memcmp(seed, after, 64) != 0);
        if (file != NULL)
            fclose(file);
    }
    {
        /* [RNG_UpdateSeedFile] */
        RNG_UpdateSeedFile("seed.bin", 0); /* before the program ends */
        /* [end] */
        expect("RNG_UpdateSeedFile", RNG_UpdateSeedFile("seed.bin", 0) == 0);
    }
    if (argc > 1) {
        /* [RNG_BytesWithPrompt not-run] */
        unsigned char key[32];
        if (RNG_BytesWithPrompt(key, sizeof key, "For the key of the authority:", ZUL_RNG_MORE_EVENTS) ==
            -PRNG_ERR_NOTAVAIL)
            puts("nobody is there to type");
        /* [end] */
        expect("RNG_BytesWithPrompt", 1);
    }
    if (argc > 1) {
        /* [RNG_MakeSeedFile not-run] */
        if (RNG_MakeSeedFile("seed.bin", NULL, 0) != 0)
            puts("no seed file");
        /* [end] */
    }
    return faults;
}
