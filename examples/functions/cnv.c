/* cnv.c: encodings. */
#include "expect.h"

int main(void) {
    {
        /* [CNV_HexStrFromBytes] */
        static const unsigned char bytes[] = {0xde, 0xad, 0xbe, 0xef};
        char hex[2 * sizeof bytes + 1];
        CNV_HexStrFromBytes(hex, sizeof hex - 1, bytes, sizeof bytes); /* "DEADBEEF" */
        /* [end] */
        expect("CNV_HexStrFromBytes", strcmp(hex, "DEADBEEF") == 0);
    }
    {
        /* [CNV_BytesFromHexStr] */
        unsigned char bytes[4];
        int length = CNV_BytesFromHexStr(bytes, sizeof bytes, "de:ad:be:ef"); /* 4 */
        /* [end] */
        expect("CNV_BytesFromHexStr", length == 4 && memcmp(bytes, "\xde\xad\xbe\xef", 4) == 0);
    }
    {
        /* [CNV_HexFilter] */
        char text[] = "de:ad be/ef";
        CNV_HexFilter(text, text, (int)strlen(text)); /* in place: "deadbeef" */
        /* [end] */
        expect("CNV_HexFilter", strcmp(text, "deadbeef") == 0);
    }
    {
        /* [CNV_B64StrFromBytes] */
        static const unsigned char bytes[] = {0xde, 0xad, 0xbe, 0xef};
        char text[9];
        CNV_B64StrFromBytes(text, 8, bytes, sizeof bytes); /* "3q2+7w==" */
        /* [end] */
        expect("CNV_B64StrFromBytes", strcmp(text, "3q2+7w==") == 0);
    }
    {
        /* [CNV_BytesFromB64Str] */
        unsigned char bytes[4];
        int length = CNV_BytesFromB64Str(bytes, sizeof bytes, "3q2+\r\n7w=="); /* line ends do not count */
        /* [end] */
        expect("CNV_BytesFromB64Str", length == 4 && memcmp(bytes, "\xde\xad\xbe\xef", 4) == 0);
    }
    {
        /* [CNV_B64Filter] */
        char text[] = "3q2+\r\n7w==";
        CNV_B64Filter(text, text, (int)strlen(text)); /* "3q2+7w==" */
        /* [end] */
        expect("CNV_B64Filter", strcmp(text, "3q2+7w==") == 0);
    }
    {
        /* [CNV_CheckUTF8] */
        switch (CNV_CheckUTF8("caf\xc3\xa9")) {
        case 0:
            puts("not UTF-8");
            break;
        case 1:
            puts("plain ASCII");
            break;
        case 2:
            puts("characters of Latin-1"); /* this one */
            break;
        default:
            puts("others too");
        }
        /* [end] */
        expect("CNV_CheckUTF8", CNV_CheckUTF8("caf\xc3\xa9") == 2 && CNV_CheckUTF8("caf\xe9") == 0);
    }
    {
        /* [CNV_CheckUTF8Bytes] */
        static const unsigned char euro[] = {0xe2, 0x82, 0xac};
        int kind = CNV_CheckUTF8Bytes(euro, sizeof euro); /* 3 */
        /* [end] */
        expect("CNV_CheckUTF8Bytes", kind == 3);
    }
    {
        /* [CNV_UTF8FromLatin1 CNV_Latin1FromUTF8] */
        char utf8[20], latin1[20];
        CNV_UTF8FromLatin1(utf8, sizeof utf8 - 1, "caf\xe9");
        if (CNV_Latin1FromUTF8(latin1, sizeof latin1 - 1, utf8) == -OUT_OF_RANGE_ERROR)
            puts("a character that Latin-1 does not have");
        /* [end] */
        expect("CNV_UTF8FromLatin1", strcmp(utf8, "caf\xc3\xa9") == 0 && strcmp(latin1, "caf\xe9") == 0);
    }
    {
        /* [CNV_UTF8BytesFromLatin1 CNV_Latin1FromUTF8Bytes] */
        unsigned char utf8[20];
        char latin1[20];
        int length = CNV_UTF8BytesFromLatin1(utf8, sizeof utf8, "caf\xe9"); /* 5 bytes, no NUL */
        CNV_Latin1FromUTF8Bytes(latin1, sizeof latin1 - 1, utf8, length);
        /* [end] */
        expect("CNV_UTF8BytesFromLatin1", length == 5 && strcmp(latin1, "caf\xe9") == 0);
    }
    {
        /* [CNV_ByteEncoding] */
        static const unsigned char latin1[] = {'c', 'a', 'f', 0xe9};
        unsigned char utf8[2 * sizeof latin1];
        int length = CNV_ByteEncoding(utf8, sizeof utf8, latin1, sizeof latin1, ZUL_CNV_UTF8_FROM_LATIN1);
        /* [end] */
        expect("CNV_ByteEncoding", length == 5 && memcmp(utf8, "caf\xc3\xa9", 5) == 0);
    }
    return faults;
}
