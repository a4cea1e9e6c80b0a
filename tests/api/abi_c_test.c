/* The header as C sees it: compiled as strict C11, one call of each family with C's own types. */
#include <string.h>

#include "zulcore.h"

/* The numbers are part of the interface: callers in other languages copy them. */
_Static_assert(BAD_PARAM_ERROR == 6 && SHORT_BUF_ERROR == 30 && PRNG_ERR_CATASTROPHIC == 299, "error codes");
_Static_assert(ZUL_HASH_SHA256 == 3 && ZUL_CIPHER_AES128 == 0x20 && ZUL_MODE_CTR == 0x400, "options");

int abi_c_check(void);

/* abi_c_check returns 0 or the number of the first step that went wrong. */
int abi_c_check(void) {
    unsigned char bytes[64];
    char text[64];
    /* FIPS 180-4, "abc" */
    static const char digest[] = "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad";
    char hex[65];

    if (ZUL_Version(NULL, NULL) != 360)
        return 1;
    if (HASH_HexFromBytes(hex, 64, "abc", 3, ZUL_HASH_SHA256) != 64 || strcmp(hex, digest) != 0)
        return 2;
    if (HMAC_Bytes(bytes, 20, "", 0, "", 0, ZUL_HASH_SHA1) != 20 || bytes[0] != 0xFB)
        return 3;
    if (CNV_HexStrFromBytes(text, 63, bytes, 1) != 2 || strcmp(text, "FB") != 0)
        return 4;
    /* FIPS 197, C.1 */
    if (CIPHER_Hex(1, text, 32, "00112233445566778899aabbccddeeff", "000102030405060708090a0b0c0d0e0f", NULL,
                   "aes-128/ecb", 0) != 0 ||
        strcmp(text, "69C4E0D86A7B0430D8CDB78070B4C55A") != 0)
        return 5;
    if (TDEA_HexMode(text, "00", "00", 1, "XYZ", NULL) == 0)
        return 6;
    if (PAD_BytesBlock(bytes, 8, (const unsigned char*)"abc", 3, 8, 0) != 8 || bytes[7] != 5)
        return 7;
    if (PEM_FileToBinFile("", "") != -BAD_PARAM_ERROR || ZUL_ErrorCode() != BAD_PARAM_ERROR)
        return 8;
    if (RNG_Bytes(bytes, 64, NULL, 0) != 0)
        return 9;
    if (WIPE_Data(bytes, 64) != 0 || bytes[0] != 0 || bytes[63] != 0)
        return 10;
    return 0;
}
