// RSAES-PKCS1-v1_5: RFC 8017, 7.2.
#include "rsa/pkcs1_encryption.h"

#include <algorithm>
#include <cstring>

#include "frame/constant_time.h"
#include "frame/wipe.h"
#include "rng/rng.h"
#include "zulcore.h"

namespace zul {

namespace {

constexpr uint8_t kBlockType = 2;
constexpr size_t kHeader = 2, kFirstEnd = 10; // the earliest place of the zero that ends the padding

constexpr size_t kDraw = 16, kDraws = 256; // octets for one octet of padding, and draws at once

// fill_nonzero takes the first octet of every draw that is not zero.
void fill_nonzero(uint8_t* out, size_t count) {
    Secret<kDraw * kDraws> random;
    while (count > 0) {
        const size_t draws = std::min(count, kDraws);
        rng_draw(random.data(), draws * kDraw);
        for (size_t i = 0; i < draws; i++) {
            const uint8_t* draw = random.data() + i * kDraw;
            const uint8_t* found = std::find_if(draw, draw + kDraw, [](uint8_t octet) { return octet != 0; });
            if (found == draw + kDraw)
                continue; // drawn again
            *out++ = *found;
            count--;
        }
    }
}

} // namespace

int pkcs1_encrypt_block(uint8_t* out, size_t outLen, const uint8_t* message, size_t length) {
    if (outLen < kPkcs1Overhead || length > outLen - kPkcs1Overhead)
        return SHORT_BUF_ERROR;
    const size_t start = outLen - length;
    if (length > 0)
        memmove(out + start, message, length);
    out[0] = 0;
    out[1] = kBlockType;
    fill_nonzero(out + kHeader, start - 1 - kHeader);
    out[start - 1] = 0;
    return 0;
}

int pkcs1_decrypt_block(const uint8_t* block, size_t length, size_t* start) {
    if (length < kPkcs1Overhead)
        return DECRYPT_ERROR;
    uint32_t good = mask_zero(block[0]) & mask_equal(block[1], kBlockType);
    uint32_t found = 0, end = 0;
    for (size_t i = kHeader; i < length; i++) {
        const uint32_t first = mask_zero(block[i]) & ~found;
        end |= first & static_cast<uint32_t>(i);
        found |= first;
    }
    good &= found & ~mask_less(end, kFirstEnd);
    if (ct_declassify(good) == 0)
        return DECRYPT_ERROR;
    *start = size_t{ct_declassify(end)} + 1;
    return 0;
}

} // namespace zul
