/* hash.c: message digests in one call. */
#include "expect.h"

static const char* const abc = "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad";

int main(void) {
    expect("write", write_file("report.txt", "abc", 3));
    {
        /* [HASH_Bytes] */
        unsigned char digest[32];
        int length = HASH_Bytes(digest, sizeof digest, "abc", 3, ZUL_HASH_SHA256); /* 32 */
        /* [end] */
        expect("HASH_Bytes", length == 32 && digest[0] == 0xba && digest[31] == 0xad);
    }
    {
        /* [HASH_File] */
        unsigned char digest[64];
        int length = HASH_File(digest, sizeof digest, "report.txt", ZUL_HASH_SHA512);
        if (length < 0)
            printf("error %d\n", -length);
        /* [end] */
        expect("HASH_File", length == 64 && digest[0] == 0xdd);
    }
    {
        /* [HASH_HexFromBytes] */
        char digest[65];
        HASH_HexFromBytes(digest, 64, "abc", 3, ZUL_HASH_SHA256); /* "ba7816bf..." */
        /* [end] */
        expect("HASH_HexFromBytes", strcmp(digest, abc) == 0);
    }
    {
        /* [HASH_HexFromFile] */
        char digest[65];
        if (HASH_HexFromFile(digest, 64, "report.txt", ZUL_HASH_SHA256) > 0)
            printf("%s  report.txt\n", digest);
        /* [end] */
        expect("HASH_HexFromFile", strcmp(digest, abc) == 0);
    }
    {
        /* [HASH_HexFromHex] */
        char digest[65];
        HASH_HexFromHex(digest, 64, "616263", ZUL_HASH_SHA256); /* of the bytes "abc" */
        /* [end] */
        expect("HASH_HexFromHex", strcmp(digest, abc) == 0);
    }
    return faults;
}
