#include "rsa/iso9796.h"
#include "support/unit_test.h"
#include "zulcore.h"

using namespace zul;

// Every message comes back, and from a block with any bit changed another one or none.
TEST(Iso9796, KeepsMessagesOfEveryLengthAndSeesDamage) {
    const auto decoded = [](const Bytes& block, size_t bits) {
        SecretBuffer message;
        const int code = iso9796_decode(message, block.data(), block.size(), bits);
        return code != 0 ? Bytes(block.size()) : Bytes(message.data(), message.data() + message.size());
    };
    for (size_t bits = 17; bits <= 82; bits++) {
        SCOPED_TRACE(bits);
        const size_t size = (bits + 7) / 8;
        Bytes block(size + 1), message;
        while (message.size() < size / 2) {
            message.push_back(static_cast<uint8_t>(0x55 + 29 * bits * message.size()));
            ASSERT_EQ(iso9796_encode(block.data(), block.size(), message.data(), message.size(), bits), 0);
            EXPECT_EQ(decoded(block, bits), message);
            for (size_t bit = 0; bit < 8 * block.size(); bit++) {
                Bytes bad = block;
                bad[bit / 8] = static_cast<uint8_t>(bad[bit / 8] ^ (0x80u >> bit % 8));
                EXPECT_NE(decoded(bad, bits), message) << bit;
            }
        }
        message.push_back(0);
        EXPECT_EQ(iso9796_encode(block.data(), size, message.data(), message.size(), bits), BAD_PARAM_ERROR);
        EXPECT_EQ(iso9796_encode(block.data(), size - 1, message.data(), 1, bits), BAD_PARAM_ERROR);
    }
}
