#include "hash/hmac.h"
#include "support/unit_test.h"

namespace zul {

namespace {

Bytes mac_of(int algorithm, const Bytes& data, const Bytes& key) {
    Bytes mac(kMaxDigestSize);
    mac.resize(static_cast<size_t>(
        hmac_bytes(mac.data(), 64, data.data(), data.size(), key.data(), key.size(), algorithm)));
    return mac;
}

} // namespace

TEST(Hmac, TakesDataInPartsAndOneKeyForTwoMessages) {
    const Bytes key(40, 'k'), data(300, 'd');
    for (const int algorithm : {0, 1, 3, 4, 5, 6, 7}) {
        HmacContext keyed;
        hmac_init(keyed, algorithm, key.data(), key.size());
        HmacContext copy = keyed;
        uint8_t other[kMaxDigestSize], whole[kMaxDigestSize];
        const int length = hmac_final(copy, other);
        for (size_t i = 0; i < data.size(); i += 7)
            hmac_update(keyed, data.data() + i, std::min<size_t>(7, data.size() - i));
        EXPECT_EQ(hmac_final(keyed, whole), length);
        EXPECT_EQ(Bytes(whole, whole + length), mac_of(algorithm, data, key));
        EXPECT_EQ(Bytes(other, other + length), mac_of(algorithm, {}, key));
    }
}

TEST(Hmac, LeavesNoKeyInItsContext) {
    for (const int algorithm : {0, 1, 3, 4, 5, 6, 7}) {
        HmacContext context;
        memset(static_cast<void*>(&context), 0, sizeof context);
        hmac_init(context, algorithm, "key", 3);
        uint8_t mac[kMaxDigestSize];
        hmac_final(context, mac);
        context.inner.algorithm = context.outer.algorithm = 0;
        const auto* bytes = reinterpret_cast<const uint8_t*>(&context);
        EXPECT_TRUE(std::all_of(bytes, bytes + sizeof context, [](uint8_t b) { return b == 0; }))
            << algorithm;
    }
}

} // namespace zul
