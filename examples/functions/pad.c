/* pad.c: block padding. */
#include "expect.h"

int main(void) {
    {
        /* [PAD_BytesBlock PAD_UnpadBytes] */
        static const unsigned char text[] = {'a', 'b', 'c'};
        unsigned char padded[16], again[16];
        int length = PAD_BytesBlock(padded, sizeof padded, text, sizeof text, 16, 0); /* 16 */
        int count = PAD_UnpadBytes(again, sizeof again, padded, length, 16, 0);       /* 3 */
        if (count == -DECRYPT_ERROR)
            puts("no such padding");
        /* [end] */
        expect("PAD_BytesBlock",
               length == 16 && padded[15] == 13 && count == 3 && memcmp(text, again, 3) == 0);
    }
    {
        /* [PAD_HexBlock PAD_UnpadHex] */
        char padded[17], again[17];
        PAD_HexBlock(padded, 16, "616263", 8, 0); /* "6162630505050505" */
        PAD_UnpadHex(again, 16, padded, 8, 0);    /* "616263" */
        /* [end] */
        expect("PAD_HexBlock", strcmp(padded, "6162630505050505") == 0 && strcmp(again, "616263") == 0);
    }
    return faults;
}
