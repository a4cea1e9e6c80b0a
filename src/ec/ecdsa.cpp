#include "ec/ecdsa.h"

#include <cstring>

#include "frame/constant_time.h"
#include "frame/wipe.h"
#include "hash/hmac.h"
#include "rng/rng.h"

namespace zul {
namespace {

// shift_right moves a big-endian number down by fewer than 8 bits.
void shift_right(uint8_t* bytes, size_t size, size_t bits) {
    if (bits == 0)
        return;
    for (size_t i = size; i-- > 0;)
        bytes[i] = static_cast<uint8_t>(bytes[i] >> bits | (i > 0 ? bytes[i - 1] << (8 - bits) : 0));
}

// The HMAC_DRBG of RFC 6979, 3.2.
class SecretNumbers {
  public:
    SecretNumbers(const EcOperations& curve, int algorithm) : curve_(curve), algorithm_(algorithm) {}

    [[nodiscard]] int begin(const uint8_t* d, const uint8_t* digest, size_t size, const uint8_t* extra) {
        length_ = hmac_length(algorithm_);
        if (length_ == 0)
            return BAD_FLAG_ERROR;
        memset(value_.data(), 0x01, length_);
        Secret<kMaxEcBytes> reduced;
        curve_.reduce_digest(reduced.data(), digest, size);
        for (const uint8_t separator : {uint8_t{0}, uint8_t{1}}) {
            Wiped<HmacContext> mac;
            hmac_init(*mac, algorithm_, key_.data(), length_);
            hmac_update(*mac, value_.data(), length_);
            hmac_update(*mac, &separator, 1);
            hmac_update(*mac, d, curve_.bytes);
            hmac_update(*mac, reduced.data(), curve_.bytes);
            if (extra != nullptr)
                hmac_update(*mac, extra, kEcdsaExtra);
            hmac_final(*mac, key_.data());
            advance();
        }
        return 0;
    }

    // next gives the first number between 1 and n - 1 that comes.
    void next(uint8_t* k) {
        for (;; refresh()) {
            for (size_t done = 0; done < curve_.bytes; done += length_) {
                advance();
                memcpy(k + done, value_.data(),
                       done + length_ <= curve_.bytes ? length_ : curve_.bytes - done);
            }
            shift_right(k, curve_.bytes, 8 * curve_.bytes - curve_.bits);
            if (ct_declassify(curve_.scalar_is_valid(k)))
                return;
        }
    }

    // refresh makes the next numbers others.
    void refresh() {
        const uint8_t separator = 0;
        Wiped<HmacContext> mac;
        hmac_init(*mac, algorithm_, key_.data(), length_);
        hmac_update(*mac, value_.data(), length_);
        hmac_update(*mac, &separator, 1);
        hmac_final(*mac, key_.data());
        advance();
    }

  private:
    void advance() {
        Wiped<HmacContext> mac;
        hmac_init(*mac, algorithm_, key_.data(), length_);
        hmac_update(*mac, value_.data(), length_);
        hmac_final(*mac, value_.data());
    }

    const EcOperations& curve_;
    int algorithm_;
    size_t length_ = 0;
    Secret<kMaxDigestSize> key_, value_;
};

} // namespace

int ecdsa_sign(uint8_t* rs, EcCurve curve, const uint8_t* d, const uint8_t* digest, size_t size,
               int digestAlgorithm, const uint8_t* extra) {
    const EcOperations& operations = ec_operations(curve);
    SecretNumbers numbers(operations, digestAlgorithm);
    if (const int error = numbers.begin(d, digest, size, extra))
        return error;
    Secret<kMaxEcBytes> k;
    for (;; numbers.refresh()) {
        numbers.next(k.data());
        if (ct_declassify(operations.sign(rs, d, k.data(), digest, size)))
            return 0;
    }
}

bool ecdsa_verify(const uint8_t* rs, EcCurve curve, const uint8_t* point, const uint8_t* digest,
                  size_t size) {
    return ec_operations(curve).verify(rs, point, digest, size);
}

void ec_make_private(uint8_t* d, EcCurve curve) {
    const EcOperations& operations = ec_operations(curve);
    do {
        rng_draw(d, operations.bytes);
        shift_right(d, operations.bytes, 8 * operations.bytes - operations.bits);
    } while (!operations.scalar_is_valid(d));
}

} // namespace zul
