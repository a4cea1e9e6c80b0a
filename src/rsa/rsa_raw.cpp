// Raw RSA and the RSA2 forms. The RSA2 forms sign data that end with a trailer in the last half-byte, and
// give the smaller of s and n - s.
#include "rsa/rsa_raw.h"

#include <cstring>

#include "frame/err.h"
#include "frame/memory.h"
#include "rsa/rsa_key_string.h"
#include "rsa/rsa_operation.h"
#include "zulcore.h"

namespace zul {

namespace {

constexpr unsigned kTrailerMask = 0xF;

// trailer_option is the trailer asked for, 0 for plain RSA.
unsigned trailer_option(int options) {
    const unsigned value = static_cast<unsigned>(options) & kTrailerMask;
    return value == ZUL_RSA2_TRAILER6 || value == ZUL_RSA2_TRAILERC ? value : 0;
}

using Operation = int (*)(const RsaKey* key, uint8_t* output, size_t* outlen, const uint8_t* input,
                          size_t inlen);

[[nodiscard]] int run(Operation operation, const RsaKey& key, SecretBuffer& result, const uint8_t* data,
                      size_t length) {
    result = SecretBuffer(key.bytes());
    size_t resultLength = 0;
    if (const int code = operation(&key, result.data(), &resultLength, data, length))
        return err_fail(code, "RSA operation failed");
    return resultLength <= length ? 0 : err_fail(OUT_OF_RANGE_ERROR, "RSA returns too many bytes");
}

// complement sets value = n - value, of the same length.
void complement(SecretBuffer& value, const RsaKey& key) {
    BigInt number, difference;
    mtConvFromOctets(number, value.data(), value.size());
    mtSubtract(difference, key.n, number);
    mtConvToOctets(difference, value.data(), value.size());
}

void take_smaller(SecretBuffer& value, const RsaKey& key) {
    SecretBuffer other(value.size());
    memcpy(other.data(), value.data(), value.size());
    complement(other, key);
    if (memcmp(other.data(), value.data(), value.size()) < 0)
        value = std::move(other);
}

bool has_trailer(const SecretBuffer& value, unsigned trailer) {
    return (value[value.size() - 1] & kTrailerMask) == trailer;
}

void write_right_aligned(uint8_t* data, size_t length, const SecretBuffer& value) {
    memset(data, 0, length);
    memcpy(data + (length - value.size()), value.data(), value.size());
}

} // namespace

int rsa_raw_private(uint8_t* data, size_t length, const char* keyString, int options) {
    RsaKey key;
    if (const int code = rsa_open_private(keyString, key))
        return err_fail(code, "Invalid Private Key");
    if (length != key.bytes())
        return err_fail(OUT_OF_RANGE_ERROR, "Data length (%ld) does not match key (%d) bytes",
                        static_cast<long>(length), static_cast<int>(key.bytes()));
    const unsigned trailer = trailer_option(options);
    if (trailer != 0 && (data[length - 1] & kTrailerMask) % trailer != 0)
        return BAD_FORMAT_ERROR;
    SecretBuffer result;
    if (const int code = run(rsaPrivate, key, result, data, length))
        return code;
    if (trailer != 0)
        take_smaller(result, key);
    write_right_aligned(data, length, result);
    return 0;
}

int rsa_raw_public(uint8_t* data, size_t length, const char* keyString, int options) {
    RsaKey key;
    if (const int code = rsa_open_public(keyString, key))
        return err_fail(code, "Invalid Public Key");
    if (length < key.bytes())
        return err_fail(OUT_OF_RANGE_ERROR, "Data length shorter than key");
    SecretBuffer result;
    if (const int code = run(rsaPublic, key, result, data, length))
        return code;
    // A signature of n / 2 or more is accepted, since some programs do not choose the smaller one.
    const unsigned trailer = trailer_option(options);
    if (trailer != 0 && !has_trailer(result, trailer)) {
        complement(result, key);
        if (!has_trailer(result, trailer)) {
            memset(data, 0, length);
            return SIGNATURE_ERROR;
        }
    }
    write_right_aligned(data, length, result);
    return 0;
}

} // namespace zul
