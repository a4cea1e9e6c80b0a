#include <climits>
#include <gtest/gtest.h>
#include <string>

#include "support/module_calls.h"

namespace {

unsigned char out[255 * 32 + 1];

int pbkdf2(int room, int passwordLen, int saltLen, int iterations, const char* hash) {
    return KDF_Pbkdf2(out, room, passwordLen == 0 ? nullptr : "password", passwordLen,
                      saltLen == 0 ? nullptr : "saltsalt", saltLen, iterations, hash);
}
int hkdf(int room, int keyLen, const char* hash) {
    return KDF_Hkdf(out, room, "key", keyLen, nullptr, 0, nullptr, 0, hash);
}
int scrypt(int n, int r, int p) {
    return KDF_Scrypt(out, 16, nullptr, 0, nullptr, 0, n, r, p);
}
int argon2(int room, int saltLen, int memory, int passes, int lanes) {
    return KDF_Argon2id(out, room, nullptr, 0, "saltsaltsalt", saltLen, memory, passes, lanes);
}

} // namespace

TEST(KdfExports, KeepTheirBounds) {
    constexpr int kRange = -OUT_OF_RANGE_ERROR, kParam = -BAD_PARAM_ERROR;
    const struct {
        int line, expected, result;
    } rows[] = {
        {__LINE__, 20, pbkdf2(20, 0, 0, 1, "Sha-512")},
        {__LINE__, 20, pbkdf2(20, 8, 8, 1, nullptr)},
        {__LINE__, kRange, pbkdf2(20, 8, 8, 0, "sha256")},
        {__LINE__, kRange, pbkdf2(0, 8, 8, 1, "sha256")},
        {__LINE__, kParam, pbkdf2(-1, 8, 8, 1, "sha256")},
        {__LINE__, kParam, pbkdf2(20, -1, 8, 1, "sha256")},
        {__LINE__, kParam, pbkdf2(20, 8, INT_MIN, 1, "sha256")},
        {__LINE__, kParam, KDF_Pbkdf2(nullptr, 20, "pw", 2, "salt", 4, 1, "sha256")},
        {__LINE__, kParam, KDF_Pbkdf2(out, 20, nullptr, 2, "salt", 4, 1, "sha256")},
        {__LINE__, kParam, KDF_Pbkdf2(out, 20, "pw", 2, nullptr, 4, 1, "sha256")},
        {__LINE__, -NOT_SUPPORTED_ERROR, pbkdf2(20, 8, 8, 1, "md2")},
        {__LINE__, -NOT_SUPPORTED_ERROR, pbkdf2(20, 8, 8, 1, "shake128")},
        {__LINE__, -NOT_SUPPORTED_ERROR, pbkdf2(20, 8, 8, 1, "sha_256")},
        {__LINE__, 255 * 32, hkdf(255 * 32, 3, "")},
        {__LINE__, kRange, hkdf(255 * 32 + 1, 3, "sha256")},
        {__LINE__, kParam, KDF_Hkdf(out, 32, "key", 3, nullptr, 0, nullptr, 1, "sha256")},
        {__LINE__, 16, scrypt(2, 1, 1)},
        {__LINE__, 16, scrypt(32768, 1, 1)},
        {__LINE__, kRange, scrypt(65536, 1, 1)}, // the standard's own
        {__LINE__, kRange, scrypt(1, 8, 1)},
        {__LINE__, kRange, scrypt(0, 8, 1)},
        {__LINE__, kRange, scrypt(INT_MIN, 8, 1)},
        {__LINE__, kRange, scrypt(1023, 8, 1)},
        {__LINE__, kRange, scrypt(16, 0, 1)},
        {__LINE__, kRange, scrypt(16, 8, -1)},
        {__LINE__, kRange, scrypt(1 << 22, 9, 1)},
        {__LINE__, kRange, scrypt(1 << 30, INT_MAX, 1)},
        {__LINE__, kRange, scrypt(2, INT_MAX, INT_MAX)},
        {__LINE__, kRange, scrypt(2, 1, (1 << 23) + 1)},
        {__LINE__, kRange, scrypt(1 << 20, 8, 65)},
        {__LINE__, 16, argon2(16, 8, 8, 1, 1)},
        {__LINE__, kRange, argon2(3, 8, 8, 1, 1)},
        {__LINE__, kRange, argon2(16, 7, 8, 1, 1)},
        {__LINE__, kRange, argon2(16, 8, 7, 1, 1)},
        {__LINE__, kRange, argon2(16, 8, 15, 1, 2)},
        {__LINE__, kRange, argon2(16, 8, (4 << 20) + 1, 1, 1)},
        {__LINE__, kRange, argon2(16, 8, 4 << 20, 17, 1)},
        {__LINE__, kRange, argon2(16, 8, 8, INT_MAX, 1)},
        {__LINE__, kRange, argon2(16, 8, 8, 0, 1)},
        {__LINE__, kRange, argon2(16, 8, 1 << 20, 1, 256)},
        {__LINE__, kRange, argon2(16, 8, 8, 1, INT_MIN)},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.result, row.expected) << "line " << row.line;

    // A key may be empty (RFC 5869 has no other rule). HMAC(HMAC(0, empty), 01) begins so:
    EXPECT_EQ(hkdf(32, 0, "sha256"), 32);
    EXPECT_EQ(std::string(out, out + 4), "\xeb\x70\xf0\x1d");

    EXPECT_FAILURE_WITH(pbkdf2(20, 8, 8, 1, "sha3"), -NOT_SUPPORTED_ERROR,
                        "Unknown algorithm 'sha3' (known: sha224, sha256, ");
}
