#include <gtest/gtest.h>

#include "cipher/cipher_choice.h"
#include "zulcore.h"

using namespace zul;

TEST(CipherChoice, ReadsNames) {
    using enum CipherAlgorithm;
    using enum CipherMode;
    const struct {
        const char* name;
        CipherAlgorithm algorithm;
        CipherMode mode;
    } good[] = {
        {"aes128", aes128, ecb},
        {"aes128/CBC", aes128, cbc},
        {" AES - 192 : Ofb ", aes192, ofb},
        {"Aes_256_cTr\n", aes256, ctr},
        {"aes-256-cfb\xC3\xA9", aes256, cfb},
        {"----------------------------------------aes128ecb", aes128, ecb},
        {"TDEA-CFB", tdea, cfb},
        {"3DES-CTR", tdea, ctr},
        {"des-ede", tdea, ecb},
        {"desede-ofb", tdea, ofb},
        {"des-EDE3-cbc", tdea, cbc},
    };
    for (const auto& c : good) {
        CipherChoice choice{};
        EXPECT_EQ(cipher_choose(&choice, c.name, 0), 0) << c.name;
        EXPECT_EQ(choice.algorithm, c.algorithm) << c.name;
        EXPECT_EQ(choice.mode, c.mode) << c.name;
    }
    for (const char* name :
         {"-", "aes", "aes-12", "aes1", "aes512cbc", "des-cbc", "cbc", "cbc-aes128", "aes128cb", "aes128cbcc",
          "aes128cbc-then-more", "aes128xts", "aes128cbcecb", "3des168", "desede4cbc", "tde\xC1"}) {
        CipherChoice choice{};
        EXPECT_EQ(cipher_choose(&choice, name, 0), BAD_PARAM_ERROR) << name;
    }
}

TEST(CipherChoice, ReadsOptions) {
    constexpr CipherMode modes[] = {CipherMode::ecb, CipherMode::cbc, CipherMode::ofb, CipherMode::cfb,
                                    CipherMode::ctr};
    constexpr CipherAlgorithm algorithms[] = {CipherAlgorithm::tdea, CipherAlgorithm::aes128,
                                              CipherAlgorithm::aes192, CipherAlgorithm::aes256};
    for (int mode = 0; mode < 16; mode++) {
        for (int algorithm = 0; algorithm < 16; algorithm++) {
            for (const int others : {0, 0x10000, ~0xFF0}) {
                const int options = mode << 8 | algorithm << 4 | others;
                SCOPED_TRACE(options);
                int expected = mode > 4                         ? BAD_MODE_ERROR
                               : algorithm < 1 || algorithm > 4 ? BAD_FLAG_ERROR
                                                                : 0;
                if (mode == 0 && algorithm == 0)
                    expected = BAD_PARAM_ERROR;
                CipherChoice choice{};
                for (const char* name : {static_cast<const char*>(nullptr), ""}) {
                    EXPECT_EQ(cipher_choose(&choice, name, options), expected);
                    if (expected != 0)
                        continue;
                    EXPECT_EQ(choice.algorithm, algorithms[algorithm - 1]);
                    EXPECT_EQ(choice.mode, modes[mode]);
                }
                const bool nameAlone = mode == 0 && algorithm == 0;
                EXPECT_EQ(cipher_choose(&choice, "aes128cbc", options), nameAlone ? 0 : BAD_PARAM_ERROR);
            }
        }
    }
}
