/* contexts.c: data in pieces. */
#include <stdlib.h>

#include "expect.h"

int main(void) {
    static const char *const pieces[] = {"Meet me ", "at noon."}, *const whole = "Meet me at noon.";
    {
        /* [HASH_Begin HASH_Add HASH_End] */
        unsigned char digest[32];
        int size = HASH_Begin(NULL, 0, "sha3-256", 0);
        void* context = malloc((size_t)size);
        if (context == NULL || HASH_Begin(context, size, "sha3-256", 0) < 0)
            return 1;
        for (int i = 0; i < 2; i++)
            HASH_Add(context, pieces[i], (int)strlen(pieces[i]));
        int length = HASH_End(digest, sizeof digest, context); /* 32; wipes the context */
        free(context);
        /* [end] */
        char hex[65];
        CNV_HexStrFromBytes(hex, 64, digest, length);
        expect("HASH_End", strncmp(hex, "F8B25F79FA", 10) == 0);
    }
    {
        /* [HMAC_Begin HMAC_Add HMAC_End] */
        unsigned char tag[32];
        int size = HMAC_Begin(NULL, 0, NULL, 0, "sha256", 0);
        void* context = malloc((size_t)size);
        if (context == NULL || HMAC_Begin(context, size, "Jefe", 4, "sha256", 0) < 0)
            return 1;
        for (int i = 0; i < 2; i++)
            HMAC_Add(context, pieces[i], (int)strlen(pieces[i]));
        HMAC_End(tag, sizeof tag, context);
        free(context);
        /* [end] */
        unsigned char other[32];
        HMAC_Bytes(other, 32, whole, 16, "Jefe", 4, ZUL_HASH_SHA256);
        expect("HMAC_End", memcmp(tag, other, 32) == 0);
    }
    {
        static const unsigned char key[32] = {1}, iv[16] = {2};
        unsigned char again[32];
        /* [CIPHER_Begin CIPHER_Add CIPHER_End] */
        unsigned char secret[32]; /* the data and at most a block of padding */
        int length = 0;
        int size = CIPHER_Begin(NULL, 0, 1, NULL, 0, NULL, 0, "aes-256-cbc", 0);
        void* context = malloc((size_t)size);
        if (context == NULL || CIPHER_Begin(context, size, 1, key, 32, iv, 16, "aes-256-cbc", 0) < 0)
            return 1;
        for (int i = 0; i < 2; i++)
            length += CIPHER_Add(secret + length, 32 - length, context, (const unsigned char*)pieces[i],
                                 (int)strlen(pieces[i]));
        length += CIPHER_End(secret + length, 32 - length, context); /* 32 */
        free(context);
        /* [end] */
        expect("CIPHER_End", length == 32 &&
                                 CIPHER_Bytes(0, again, secret, 32, key, iv, "aes-256-cbc", 0) == 0 &&
                                 memcmp(again, whole, 16) == 0 && again[31] == 16);
    }
    return faults;
}
