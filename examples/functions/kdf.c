/* kdf.c: keys from passwords and from other keys. */
#include "expect.h"

int main(void) {
    static const char* const password = "correct horse battery staple";
    unsigned char salt[16], one[32], two[32];
    expect("salt", RNG_Bytes(salt, sizeof salt, NULL, 0) == 0);
    {
        /* [KDF_Pbkdf2] */
        unsigned char key[32];
        if (KDF_Pbkdf2(key, sizeof key, password, (int)strlen(password), salt, sizeof salt, 600000,
                       "sha256") < 0)
            puts("no key");
        /* [end] */
        /* RFC 7914, section 11 */
        static const unsigned char known[] = {0x55, 0xac, 0x04, 0x6e, 0x56, 0xe3, 0x08, 0x9f};
        expect("KDF_Pbkdf2",
               KDF_Pbkdf2(one, 8, "passwd", 6, "salt", 4, 1, NULL) == 8 && memcmp(one, known, 8) == 0);
    }
    {
        unsigned char master[32] = {1};
        /* [KDF_Hkdf] */
        /* Keys for two purposes from one; the salt may be missing. */
        unsigned char fileKey[32], logKey[32];
        KDF_Hkdf(fileKey, sizeof fileKey, master, sizeof master, NULL, 0, "files", 5, "sha256");
        KDF_Hkdf(logKey, sizeof logKey, master, sizeof master, NULL, 0, "log", 3, "sha256");
        /* [end] */
        expect("KDF_Hkdf", memcmp(fileKey, logKey, 32) != 0);
    }
    {
        /* [KDF_Scrypt] */
        unsigned char key[32];
        if (KDF_Scrypt(key, sizeof key, password, (int)strlen(password), salt, sizeof salt, 32768, 8, 1) < 0)
            puts("no key"); /* for want of memory, say: this takes 32 MiB */
        /* [end] */
        /* RFC 7914, section 12 */
        static const unsigned char known[] = {0xfd, 0xba, 0xbe, 0x1c, 0x9d, 0x34, 0x72, 0x00};
        expect("KDF_Scrypt",
               KDF_Scrypt(one, 8, "password", 8, "NaCl", 4, 1024, 8, 16) == 8 && memcmp(one, known, 8) == 0);
    }
    {
        /* [KDF_Argon2id] */
        unsigned char key[32];
        if (KDF_Argon2id(key, sizeof key, password, (int)strlen(password), salt, sizeof salt, 65536, 3, 4) <
            0)
            puts("no key"); /* this takes 64 MiB */
        /* [end] */
        expect("KDF_Argon2id", KDF_Argon2id(one, 32, password, 28, salt, 16, 64, 1, 1) == 32 &&
                                   KDF_Argon2id(two, 32, password, 28, salt, 16, 64, 1, 1) == 32 &&
                                   memcmp(one, two, 32) == 0 && memcmp(one, key, 32) != 0);
    }
    return faults;
}
