/* hmac.c: message authentication codes in one call; the values are those of RFC 4231, case 2. */
#include "expect.h"

static const char* const mac = "5bdcc146bf60754e6a042426089575c75a003f089d2739839dec58b964ec3843";

int main(void) {
    static const char* const message = "what do ya want for nothing?";
    {
        /* [HMAC_Bytes] */
        unsigned char tag[32];
        int length = HMAC_Bytes(tag, sizeof tag, message, (int)strlen(message), "Jefe", 4, ZUL_HASH_SHA256);
        /* [end] */
        expect("HMAC_Bytes", length == 32 && tag[0] == 0x5b && tag[31] == 0x43);
    }
    {
        /* [HMAC_HexFromBytes] */
        char tag[65];
        HMAC_HexFromBytes(tag, 64, message, (int)strlen(message), "Jefe", 4,
                          ZUL_HASH_SHA256); /* "5bdcc146..." */
        /* [end] */
        expect("HMAC_HexFromBytes", strcmp(tag, mac) == 0);
    }
    {
        static const char* const messageHex = "7768617420646f2079612077616e7420666f72206e6f7468696e673f";
        /* [HMAC_HexFromHex] */
        char tag[65];
        HMAC_HexFromHex(tag, 64, messageHex, "4a656665", ZUL_HASH_SHA256);
        /* [end] */
        expect("HMAC_HexFromHex", strcmp(tag, mac) == 0);
    }
    return faults;
}
