#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "hash/digest.h"
#include "hash/digest_names.h"
#include "platform/cpu.h"
#include "support/vectors.h"

namespace zul {
namespace {

using Bytes = std::vector<uint8_t>;

class Sha3Kernels : public testing::TestWithParam<const char*> {
  protected:
    void SetUp() override {
        const std::string kernel = GetParam();
        cpu_mask_features(kernel == "portable" ? kCpuAvx2 : kernel == "bmi" ? kCpuAvx512 : 0u);
        if (sha3_kernel() != std::string(GetParam()))
            GTEST_SKIP() << "this processor does not have it";
    }
    void TearDown() override { cpu_mask_features(0); }
};

} // namespace

INSTANTIATE_TEST_SUITE_P(All, Sha3Kernels, testing::Values("portable", "bmi", "avx512"));

TEST_P(Sha3Kernels, MeetFips202InEverySplit) {
    for (const auto& v : test::read_vectors("hash/sha3_fips202.txt")) {
        int algorithm = 0;
        ASSERT_EQ(digest_choose(&algorithm, v.text("Algorithm").c_str()), 0);
        const Bytes once = v.hex("Message"), expected = v.hex("Digest");
        Bytes message;
        for (long long times = v.number("Times"); times > 0; times--)
            message.insert(message.end(), once.begin(), once.end());
        for (size_t cut = 0; cut <= message.size(); cut++) {
            DigestContext context;
            digest_init(context, algorithm);
            digest_update(context, message.data(), cut);
            digest_update(context, message.data() + cut, message.size() - cut);
            Bytes digest(kMaxDigestSize);
            digest.resize(static_cast<size_t>(digest_final(context, digest.data())));
            ASSERT_EQ(test::to_hex(digest), test::to_hex(expected)) << cut;
        }
    }
}

TEST_P(Sha3Kernels, SqueezeInPieces) {
    for (const auto begin : {shake128_init, shake256_init}) {
        Bytes whole(700);
        Sha3Context context;
        begin(context);
        sha3_update(context, "message", 7);
        sha3_squeeze(context, whole.data(), whole.size());
        for (const size_t piece : {1u, 7u, 135u, 136u, 137u, 168u, 169u}) {
            Bytes out(whole.size());
            begin(context);
            sha3_update(context, "message", 7);
            for (size_t done = 0; done < out.size(); done += piece)
                sha3_squeeze(context, out.data() + done, std::min(piece, out.size() - done));
            EXPECT_EQ(out, whole) << piece;
        }
    }
    // The bytes from 480 on of an empty SHAKE128 (FIPS 202's example output has 512).
    Bytes out(512);
    Sha3Context context;
    shake128_init(context);
    sha3_squeeze(context, out.data(), out.size());
    EXPECT_EQ(test::to_hex(out.data() + 480, 32),
              "43e41b45a653f2a5c4492c1add544512dda2529833462b71a41a45be97290b6f");
}

} // namespace zul
