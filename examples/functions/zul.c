/* zul.c: errors and the module. */
#include "expect.h"

int main(void) {
    {
        /* [ZUL_ErrorCode ZUL_LastError ZUL_ErrorLookup] */
        unsigned char digest[32];
        if (HASH_File(digest, 32, "no such file", ZUL_HASH_SHA256) < 0) {
            char meaning[100] = "", reason[512] = "";
            int code = ZUL_ErrorCode();                     /* 1: OPEN_ERROR */
            ZUL_ErrorLookup(meaning, sizeof meaning, code); /* here alone the room counts the NUL */
            ZUL_LastError(reason, sizeof reason - 1);       /* more about this failure; often empty */
            printf("error %d: %s %s\n", code, meaning, reason);
        }
        /* [end] */
        expect("ZUL_ErrorCode",
               HASH_File(digest, 32, "no such file", 3) == -OPEN_ERROR && ZUL_ErrorCode() == OPEN_ERROR);
    }
    {
        /* [ZUL_ModuleName] */
        char path[261], platform[16];
        ZUL_ModuleName(path, 260, 0);
        ZUL_ModuleName(platform, 15, ZUL_MODULE_PLATFORM); /* "Win64" or "Lin64" */
        /* [end] */
        expect("ZUL_ModuleName", strstr(path, "zulcore") != NULL && strstr(platform, "64") != NULL);
    }
    {
        /* [ZUL_Version ZUL_CompileTime] */
        char built[21];
        int version = ZUL_Version(NULL, NULL);
        ZUL_CompileTime(built, 20);
        printf("zulcore %d.%d.%d of %s\n", version / 100, version / 10 % 10, version % 10, built);
        /* [end] */
        expect("ZUL_Version", version >= 360 && strlen(built) == 20);
    }
    {
        /* [ZUL_PowerUpTests] */
        if (ZUL_PowerUpTests(0) != 0)
            puts("the module was changed, or does not compute as it should");
        /* [end] */
        expect("ZUL_PowerUpTests", ZUL_PowerUpTests(0) == 0);
    }
    return faults;
}
