#include "cipher/padding.h"

#include "encode/hex.h"
#include "frame/wipe.h"
#include "zulcore.h"

namespace zul {

namespace {

// All ones if a < b, else 0; both are below 2^31.
uint32_t less_mask(size_t a, size_t b) {
    return 0u - ((static_cast<uint32_t>(a) - static_cast<uint32_t>(b)) >> 31);
}

// Not 0 if one of the last count bytes of a block of flags is set.
uint32_t any_in_pad(const uint8_t* flags, size_t blockLength, size_t count) {
    uint32_t any = 0;
    for (size_t fromEnd = 0; fromEnd < blockLength; fromEnd++)
        any |= flags[blockLength - 1 - fromEnd] & less_mask(fromEnd, count);
    return any;
}

} // namespace

size_t pad_count(const uint8_t* lastBlock, size_t blockLength) {
    const size_t count = lastBlock[blockLength - 1];
    Secret<kMaxPadding> difference;
    for (size_t i = 0; i < blockLength; i++)
        difference[i] = static_cast<uint8_t>(lastBlock[i] ^ count);
    const uint32_t tooLarge = less_mask(blockLength, count);
    const bool damaged = (tooLarge | any_in_pad(difference.data(), blockLength, count)) != 0;
    return damaged ? 0 : count; // a count of 0 says itself that the pad is damaged
}

int pad_hex_count(const char* lastBlock, size_t blockLength) {
    Secret<kMaxPadding> bytes, notHex;
    for (size_t i = 0; i < blockLength; i++) {
        size_t decoded = 0;
        notHex[i] = hex_decode_strict(&bytes[i], &decoded, lastBlock + 2 * i, 2) ? 0 : 1;
    }
    if (notHex[blockLength - 1] != 0)
        return -BAD_FORMAT_ERROR;
    const size_t count = bytes[blockLength - 1];
    if (count == 0 || count > blockLength)
        return -DECRYPT_ERROR;
    if (any_in_pad(notHex.data(), blockLength, count) != 0)
        return -BAD_FORMAT_ERROR;
    const size_t checked = pad_count(bytes.data(), blockLength);
    return checked == 0 ? -DECRYPT_ERROR : static_cast<int>(checked);
}

} // namespace zul
