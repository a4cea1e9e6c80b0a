#include "cipher/padding.h"
#include "support/unit_test.h"

using namespace zul;

TEST(PadCount, AcceptsExactlyWholePads) {
    for (const size_t block : {8u, 16u}) {
        for (unsigned last = 0; last < 256; last++) {
            uint8_t bytes[kMaxPadding];
            memset(bytes, static_cast<int>(last), block);
            const size_t count = last <= block ? last : 0;
            EXPECT_EQ(pad_count(bytes, block), count) << block << " " << last;
            // Only the bytes within the pad count, and each bit of them does.
            for (size_t i = 0; count > 0 && i + 1 < block; i++) {
                for (unsigned bit = 0; bit < 8; bit++) {
                    bytes[i] = static_cast<uint8_t>(bytes[i] ^ (1u << bit));
                    EXPECT_EQ(pad_count(bytes, block), i < block - count ? count : 0) << last << " " << i;
                    bytes[i] = static_cast<uint8_t>(bytes[i] ^ (1u << bit));
                }
            }
        }
    }
}
