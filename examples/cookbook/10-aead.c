/* A message under AES-256-GCM, in memory. */
#include <stdio.h>
#include <string.h>

#include "zulcore.h"

int main(void) {
    static const unsigned char message[] = "Meet me at noon.";
    unsigned char again[sizeof message];
    /* [show] */
    unsigned char key[32], sealed[sizeof message + 28]; /* 12 of the nonce, 16 of the tag */
    RNG_Bytes(key, sizeof key, NULL, 0);
    int length = AEAD_Encrypt(sealed, sizeof sealed, message, sizeof message, key, sizeof key, NULL, 0, NULL,
                              0, "aes-256-gcm", ZUL_AEAD_RANDOM_NONCE);
    if (length < 0)
        return -length;

    int count = AEAD_Decrypt(again, sizeof again, sealed, length, key, sizeof key, NULL, 0, NULL, 0,
                             "aes-256-gcm", ZUL_AEAD_RANDOM_NONCE);
    if (count == -DECRYPT_ERROR)
        puts("changed, or another key");
    WIPE_Data(key, sizeof key);
    /* [end] */
    return count != sizeof message || memcmp(message, again, sizeof message) != 0;
}
