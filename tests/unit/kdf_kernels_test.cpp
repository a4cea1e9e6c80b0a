#include <gtest/gtest.h>

#include "frame/memory_hooks.h"
#include "pbe/argon2.h"
#include "support/hidden_features.h"
#include "support/vectors.h"
#include "zulcore.h"

// The vectors of the standards through the exports, by every kernel that this processor can run.

namespace zul {

using Bytes = std::vector<uint8_t>;

class KdfKernels : public test::HiddenFeatures {};
INSTANTIATE_TEST_SUITE_P(Hidden, KdfKernels, testing::Values(0u, kCpuAvx512, kCpuAvx512 | kCpuAvx2));

TEST_P(KdfKernels, Vectors) {
    for (const auto& v : test::read_vectors("pbe/hkdf.txt")) {
        const Bytes key = v.hex("Key"), salt = v.hex("Salt"), info = v.hex("Info"), output = v.hex("Output");
        Bytes out(output.size());
        KDF_Hkdf(out.data(), static_cast<int>(out.size()), key.data(), static_cast<int>(key.size()),
                 salt.data(), static_cast<int>(salt.size()), info.data(), static_cast<int>(info.size()),
                 v.text("Hash").c_str());
        EXPECT_EQ(out, output);
    }
    for (const auto& v : test::read_vectors("pbe/scrypt.txt")) {
        const Bytes password = v.hex("Password"), salt = v.hex("Salt"), output = v.hex("Output");
        Bytes out(output.size());
        KDF_Scrypt(out.data(), static_cast<int>(out.size()), password.data(),
                   static_cast<int>(password.size()), salt.data(), static_cast<int>(salt.size()),
                   static_cast<int>(v.number("N")), static_cast<int>(v.number("R")),
                   static_cast<int>(v.number("P")));
        EXPECT_EQ(out, output);
    }
    for (const auto& v : test::read_vectors("pbe/argon2id.txt")) {
        const Bytes output = v.hex("Output");
        Bytes out(output.size()),
            inputs[4] = {v.hex("Password"), v.hex("Salt"), v.hex("Secret"), v.hex("Associated")};
        const auto bytes = [&](int i) { return Argon2Bytes{inputs[i].data(), inputs[i].size()}; };
        EXPECT_EQ(
            argon2id(out.data(), out.size(), {bytes(0), bytes(1), bytes(2), bytes(3)},
                     {static_cast<uint64_t>(v.number("Memory")), static_cast<uint64_t>(v.number("Passes")),
                      static_cast<uint64_t>(v.number("Lanes"))}),
            0);
        EXPECT_EQ(out, output);
    }
}

// What the derivation filled is wiped before the system takes it back; without memory there is a code.
TEST(KdfMemory, IsWipedAndMayRunOut) {
    static int freed, dirty;
    constexpr size_t kLooked = 1 << 20;
    const auto derive = [](bool isArgon) {
        uint8_t out[16];
        return isArgon ? KDF_Argon2id(out, 16, "pw", 2, "saltsalt", 8, 1024, 1, 1)
                       : KDF_Scrypt(out, 16, "pw", 2, "salt", 4, 1024, 8, 1);
    };
    for (const bool isArgon : {false, true}) {
        freed = dirty = 0;
        memory_set_hooks({nullptr, [](void* block) {
                              freed++;
                              for (size_t i = 0; i < kLooked; i++)
                                  dirty += static_cast<uint8_t*>(block)[i] != 0;
                          }});
        EXPECT_EQ(derive(isArgon), 16);
        memory_set_hooks({[](size_t) { return true; }, nullptr});
        EXPECT_EQ(derive(isArgon), -MEMORY_ERROR);
        memory_set_hooks({});
        EXPECT_EQ(freed, 1);
        EXPECT_EQ(dirty, 0);
    }
}

} // namespace zul
