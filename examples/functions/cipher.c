/* cipher.c: block ciphers in one call, and key wrap. */
#include "expect.h"

int main(void) {
    static const unsigned char key[32] = "0123456789abcdef0123456789abcde", iv[16] = "fedcba987654321";
    expect("write", write_file("plain.txt", "Meet me at noon.", 16));
    {
        /* [CIPHER_Bytes] */
        static const unsigned char text[] =
            "Meet me at noon."; /* with its NUL 17 bytes: CTR takes any length */
        unsigned char secret[sizeof text], again[sizeof text];
        CIPHER_Bytes(1, secret, text, sizeof text, key, iv, "aes-256-ctr", 0);
        CIPHER_Bytes(0, again, secret, sizeof text, key, iv, "aes-256-ctr", 0);
        /* [end] */
        expect("CIPHER_Bytes",
               memcmp(text, again, sizeof text) == 0 && memcmp(text, secret, sizeof text) != 0);
    }
    {
        /* [CIPHER_Hex] */
        /* FIPS 197, appendix C.1 */
        char secret[33];
        int status = CIPHER_Hex(1, secret, 32, "00112233445566778899AABBCCDDEEFF",
                                "000102030405060708090A0B0C0D0E0F", NULL, "aes-128-ecb", 0);
        /* [end] */
        expect("CIPHER_Hex", status == 0 && strcmp(secret, "69C4E0D86A7B0430D8CDB78070B4C55A") == 0);
    }
    {
        /* [CIPHER_File] */
        if (CIPHER_File(1, "secret.bin", "plain.txt", key, iv, "aes-256-cbc", 0) != 0 ||
            CIPHER_File(0, "again.txt", "secret.bin", key, iv, "aes-256-cbc", 0) != 0)
            printf("error %d\n", ZUL_ErrorCode());
        /* [end] */
        expect("CIPHER_File", same_file("plain.txt", "again.txt") && !same_file("plain.txt", "secret.bin"));
    }
    {
        /* [TDEA_BytesMode] */
        static const unsigned char text[16] = "two whole block";
        unsigned char secret[16], again[16]; /* the key has 24 bytes, the IV 8 */
        TDEA_BytesMode(secret, text, 16, key, 1, "CBC", iv);
        TDEA_BytesMode(again, secret, 16, key, 0, "CBC", iv);
        /* [end] */
        expect("TDEA_BytesMode", memcmp(text, again, 16) == 0 && memcmp(text, secret, 16) != 0);
    }
    {
        /* [TDEA_HexMode] */
        /* SP 800-67, appendix B */
        char secret[33];
        TDEA_HexMode(secret, "5468652071756663", "0123456789ABCDEF23456789ABCDEF01456789ABCDEF0123", 1, "ECB",
                     NULL);
        /* [end] */
        expect("TDEA_HexMode", strcmp(secret, "A826FD8CE53B855F") == 0);
    }
    {
        /* [TDEA_B64Mode] */
        char secret[13], again[13]; /* 8 bytes: (8 + 2) / 3 * 4 characters and the NUL */
        const char* keyText = "ASNFZ4mrze8jRWeJq83vAUVniavN7wEj";
        TDEA_B64Mode(secret, "VGhlIHF1ZmM=", keyText, 1, "ECB", NULL);
        TDEA_B64Mode(again, secret, keyText, 0, "ECB", NULL);
        /* [end] */
        expect("TDEA_B64Mode", strcmp(secret, "qCb9jOU7hV8=") == 0 && strcmp(again, "VGhlIHF1ZmM=") == 0);
    }
    {
        /* [TDEA_File] */
        if (TDEA_File("secret.bin", "plain.txt", key, 1, "CBC", iv) != 0 ||
            TDEA_File("again.txt", "secret.bin", key, 0, "CBC", iv) != 0)
            printf("error %d\n", ZUL_ErrorCode());
        /* [end] */
        expect("TDEA_File", same_file("plain.txt", "again.txt") && !same_file("plain.txt", "secret.bin"));
    }
    {
        unsigned char master[32] = {7};
        /* [CIPHER_KeyWrap CIPHER_KeyUnwrap] */
        unsigned char wrapped[40], unwrapped[32];
        CIPHER_KeyWrap(wrapped, sizeof wrapped, key, 32, master, 32, ZUL_CIPHER_AES256);
        int length =
            CIPHER_KeyUnwrap(unwrapped, sizeof unwrapped, wrapped, 40, master, 32, ZUL_CIPHER_AES256);
        if (length == -1)
            puts("another master key, or changed");
        /* [end] */
        master[0] = 8;
        expect("CIPHER_KeyWrap",
               length == 32 && memcmp(key, unwrapped, 32) == 0 &&
                   CIPHER_KeyUnwrap(unwrapped, 32, wrapped, 40, master, 32, ZUL_CIPHER_AES256) == -1);
    }
    return faults;
}
