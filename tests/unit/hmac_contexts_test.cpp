#include "hash/hmac.h"
#include "support/unit_test.h"

using namespace zul;

TEST(Hmac, LeavesNoKeyInItsContext) {
    for (const int algorithm : {0, 1, 3, 4, 5, 6, 7}) {
        HmacContext context;
        memset(static_cast<void*>(&context), 0, sizeof context);
        hmac_init(context, algorithm, "key", 3);
        uint8_t mac[kMaxDigestSize];
        hmac_final(context, mac);
        context.inner.algorithm = context.outer.algorithm = 0;
        EXPECT_TRUE(test::is_zero(&context, sizeof context)) << algorithm;
    }
}
