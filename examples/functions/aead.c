/* aead.c: authenticated encryption. */
#include "expect.h"

int main(void) {
    static const unsigned char text[] = "Meet me at noon.", heading[] = "to Bob";
    unsigned char key[32] = {1}, again[sizeof text];
    /* [AEAD_Encrypt] */
    unsigned char sealed[12 + sizeof text + 16]; /* nonce, data, tag */
    int length = AEAD_Encrypt(sealed, sizeof sealed, text, sizeof text, key, 32, NULL, 0, heading,
                              sizeof heading, "chacha20-poly1305", ZUL_AEAD_RANDOM_NONCE);
    /* [end] */
    expect("AEAD_Encrypt", length == sizeof sealed);
    /* [AEAD_Decrypt] */
    int count = AEAD_Decrypt(again, sizeof again, sealed, length, key, 32, NULL, 0, heading, sizeof heading,
                             "chacha20-poly1305", ZUL_AEAD_RANDOM_NONCE);
    if (count == -DECRYPT_ERROR)
        puts("changed, or another key or heading");
    /* [end] */
    expect("AEAD_Decrypt", count == sizeof text && memcmp(text, again, sizeof text) == 0);
    sealed[15] ^= 1;
    expect("AEAD_Decrypt of changed data",
           AEAD_Decrypt(again, sizeof again, sealed, length, key, 32, NULL, 0, heading, sizeof heading,
                        "chacha20-poly1305", ZUL_AEAD_RANDOM_NONCE) == -DECRYPT_ERROR);
    return faults;
}
