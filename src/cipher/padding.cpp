#include "cipher/padding.h"

#include "encode/hex.h"
#include "frame/constant_time.h"
#include "frame/wipe.h"

namespace zul {

size_t pad_count(const uint8_t* lastBlock, size_t blockLength) {
    const size_t count = lastBlock[blockLength - 1];
    uint32_t damaged = mask_less(blockLength, count);
    for (size_t fromEnd = 0; fromEnd < blockLength; fromEnd++)
        damaged |=
            (lastBlock[blockLength - 1 - fromEnd] ^ static_cast<uint32_t>(count)) & mask_less(fromEnd, count);
    return damaged != 0 ? 0 : count; // a count of 0 is itself a damaged pad
}

size_t pad_hex_count(const char* lastBlock, size_t blockLength) {
    Secret<kMaxPadding> bytes; // a pair that is not hex counts as 0, which no pad holds
    for (size_t i = 0; i < blockLength; i++) {
        size_t decoded = 0;
        hex_decode_strict(&bytes[i], &decoded, lastBlock + 2 * i, 2);
    }
    return pad_count(bytes.data(), blockLength);
}

} // namespace zul
