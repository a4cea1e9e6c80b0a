/* Bytes as text and back. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "zulcore.h"

int main(void) {
    static const unsigned char bytes[] = {0xde, 0xad, 0xbe, 0xef, 0x00};
    /* [show] */
    /* Asked without room, a function says how much it needs; the NUL is not counted. */
    int length = CNV_B64StrFromBytes(NULL, 0, bytes, sizeof bytes);
    char* text = malloc((size_t)length + 1);
    if (text == NULL)
        return 1;
    CNV_B64StrFromBytes(text, length, bytes, sizeof bytes);
    puts(text);

    unsigned char again[sizeof bytes];
    int count = CNV_BytesFromB64Str(again, sizeof again, text);
    /* [end] */
    int isSame = strcmp(text, "3q2+7wA=") == 0 && count == 5 && memcmp(again, bytes, 5) == 0;
    free(text);
    return !isSame;
}
