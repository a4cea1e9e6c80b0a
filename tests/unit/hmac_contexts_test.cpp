#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>

#include "hash/hmac.h"
#include "support/vectors.h"

namespace zul {

namespace {

using Bytes = std::vector<uint8_t>;

// The routine of an algorithm's own.
Bytes direct(int algorithm, const Bytes& data, const Bytes& key) {
    Bytes mac(static_cast<size_t>(hmac_length(algorithm)));
    auto* routine = algorithm == kDigestMd5      ? hmac_md5
                    : algorithm == kDigestSha224 ? hmac_sha224
                    : algorithm == kDigestSha256 ? hmac_sha256
                    : algorithm == kDigestSha384 ? hmac_sha384
                    : algorithm == kDigestSha512 ? hmac_sha512
                                                 : hmac_sha1;
    routine(mac.data(), data.data(), data.size(), key.data(), key.size());
    return mac;
}

} // namespace

TEST(Hmac, MeetsItsStandardsInEveryForm) {
    for (const char* file : {"hash/hmac_rfc2202.txt", "hash/hmac_rfc4231.txt"}) {
        for (const auto& v : test::read_vectors(file)) {
            SCOPED_TRACE(v.where());
            const auto algorithm = static_cast<int>(v.number("Algorithm"));
            const Bytes key = v.hex("Key"), data = v.hex("Data"), expected = v.hex("Mac");
            Bytes mac = direct(algorithm, data, key);
            mac.resize(expected.size());
            EXPECT_EQ(mac, expected);

            // One key for two messages: a copy of the context goes first.
            HmacContext keyed;
            ASSERT_EQ(hmac_init(keyed, algorithm, key.data(), key.size()), 0);
            HmacContext copy = keyed;
            uint8_t other[kMaxDigestSize], whole[kMaxDigestSize];
            hmac_final(copy, other);
            for (size_t i = 0; i < data.size(); i += 7)
                hmac_update(keyed, data.data() + i, std::min<size_t>(7, data.size() - i));
            EXPECT_EQ(hmac_final(keyed, whole), hmac_length(algorithm));
            EXPECT_EQ(Bytes(whole, whole + expected.size()), expected);
            EXPECT_EQ(Bytes(other, other + hmac_length(algorithm)), direct(algorithm, {}, key));
        }
    }
}

TEST(Hmac, LeavesNoKeyInItsContext) {
    for (const int algorithm : {0, 1, 3, 4, 5, 6, 7}) {
        HmacContext context;
        memset(static_cast<void*>(&context), 0, sizeof context);
        ASSERT_EQ(hmac_init(context, algorithm, "key", 3), 0);
        uint8_t mac[kMaxDigestSize];
        hmac_final(context, mac);
        context.inner.algorithm = context.outer.algorithm = 0;
        const auto* bytes = reinterpret_cast<const uint8_t*>(&context);
        EXPECT_TRUE(std::all_of(bytes, bytes + sizeof context, [](uint8_t b) { return b == 0; }))
            << algorithm;
    }
}

TEST(Hmac, KnowsNoMd2) {
    HmacContext context;
    uint8_t mac[kMaxDigestSize];
    for (const int algorithm : {2, 8, 15, -1}) {
        EXPECT_EQ(hmac_init(context, algorithm, "key", 3), -BAD_FLAG_ERROR);
        EXPECT_EQ(hmac_bytes(mac, 64, "", 0, "key", 3, algorithm), -BAD_FLAG_ERROR);
        EXPECT_EQ(hmac_bytes(nullptr, 0, "", 0, "key", 3, algorithm), -BAD_FLAG_ERROR);
    }
}

} // namespace zul
